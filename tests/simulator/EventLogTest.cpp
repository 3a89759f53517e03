#include "simulator/EventLog.h"

#include <gtest/gtest.h>

namespace ostrand::simulator {
namespace {

Document dataSet() {
  std::string parameters;
  for (char row = '1'; row <= '8'; ++row) {
    parameters += std::string("<data:parameter name=\"eventLogInfoEvent0") + row + "\" type=\"stringVal\" value=\"\" access=\"read\"/>";
    parameters += std::string("<data:parameter name=\"eventLogInfoCount0") + row + "\" type=\"integerVal\" value=\"0\" access=\"read\"/>";
  }
  return Document::read("<data:dtm xmlns:data=\"d\"><data:persistentData><data:parameters>" + parameters +
                        "</data:parameters></data:persistentData></data:dtm>");
}

class EventLogTest : public testing::Test {
 protected:
  std::string event(const char* row) { return table.find(std::string("eventLogInfoEvent0") + row)->value.text; }
  double count(const char* row) { return table.number(std::string("eventLogInfoCount0") + row); }

  ParameterTable table{dataSet()};
  EventLog log{table};
};

TEST_F(EventLogTest, CountsInRows) {
  for (const char* name : {"a", "b", "a"}) log.count(EventLog::Kind::Info, name);
  EXPECT_EQ(event("1"), "a");
  EXPECT_EQ(count("1"), 2);
  EXPECT_EQ(event("2"), "b");
  EXPECT_EQ(count("2"), 1);
  EXPECT_EQ(event("3"), "");
  log.count(EventLog::Kind::Error, "a");  // a list that the device does not have
}

TEST_F(EventLogTest, AFullListGivesItsLastRow) {
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "h", "i"}) log.count(EventLog::Kind::Info, name);
  EXPECT_EQ(event("7"), "g");
  EXPECT_EQ(event("8"), "i");
  EXPECT_EQ(count("8"), 1);
}

TEST_F(EventLogTest, FollowsAConditionByItsBeginnings) {
  for (const bool condition : {false, true, true, false, true}) log.follow(EventLog::Kind::Info, "a", condition);
  EXPECT_EQ(count("1"), 2);
}

TEST_F(EventLogTest, WhatIsForgottenBeginsAnew) {
  log.follow(EventLog::Kind::Info, "a", true);
  log.forget();
  log.follow(EventLog::Kind::Info, "a", true);
  EXPECT_EQ(count("1"), 2);
}

TEST_F(EventLogTest, AClearedListCountsAnew) {
  log.follow(EventLog::Kind::Info, "a", true);
  log.count(EventLog::Kind::Info, "b");
  log.clear(EventLog::Kind::Warning);
  EXPECT_EQ(event("2"), "b");
  log.clear(EventLog::Kind::Info);
  EXPECT_EQ(event("1"), "");
  EXPECT_EQ(event("2"), "");
  EXPECT_EQ(count("1"), 0);
  log.follow(EventLog::Kind::Info, "a", true);  // it has been there all the time
  EXPECT_EQ(event("1"), "");
  log.count(EventLog::Kind::Info, "b");
  EXPECT_EQ(event("1"), "b");
  EXPECT_EQ(count("1"), 1);
}

TEST_F(EventLogTest, StopsCountingAtTheHighestCount) {
  table.set("eventLogInfoEvent01", "a");
  table.set("eventLogInfoCount01", 65535);
  log.count(EventLog::Kind::Info, "a");
  EXPECT_EQ(count("1"), 65535);
}

}  // namespace
}  // namespace ostrand::simulator
