#include <gtest/gtest.h>

#include "diagnostics/EventLogName.h"

namespace ostrand {
namespace {

TEST(EventLogNameTest, TheCategoryIsTheFirstOfTheThreeWords) {
  EXPECT_EQ(GetEventLogCategory("eventLogErrorEvent01"), 0);
  EXPECT_EQ(GetEventLogCategory("eventLogWarningEvent01"), 1);
  EXPECT_EQ(GetEventLogCategory("eventLogInfoCount01"), 2);
  EXPECT_EQ(GetEventLogCategory("InfoWarningError"), 0) << "errors are looked for first";
  EXPECT_EQ(GetEventLogCategory("InfoWarning"), 1);
  for (const char* name : {"", "eventLogEvent01", "eventLogerrorEvent01", "eventLogERROREvent01", "eventLogErrEvent01", "eventLogFatalEvent01"})
    EXPECT_EQ(GetEventLogCategory(name), -1) << name;
}

TEST(EventLogNameTest, TheKindIsNotTheBeginningOfTheName) {
  EXPECT_EQ(GetEventLogKind("eventLogErrorEvent01"), 0);
  EXPECT_EQ(GetEventLogKind("eventLogErrorCount01"), 1);
  EXPECT_EQ(GetEventLogKind("eventLogErrorCountEvent01"), 0) << "an event is looked for first";
  for (const char* name : {"", "eventLogError01", "eventLogErrorevent01", "eventLogErrorcount01", "eventLogErrorText01"})
    EXPECT_EQ(GetEventLogKind(name), -1) << name;
}

TEST(EventLogNameTest, TheRowIsTheNumberInTheLastTwoCharacters) {
  EXPECT_EQ(GetEventLogRow("eventLogErrorEvent01"), 1);
  EXPECT_EQ(GetEventLogRow("eventLogErrorEvent08"), 8);
  EXPECT_EQ(GetEventLogRow("eventLogErrorEvent99"), 99);
  EXPECT_EQ(GetEventLogRow("eventLogErrorEvent00"), 0);
  EXPECT_EQ(GetEventLogRow("eventLogErrorEvent123"), 23);
  EXPECT_EQ(GetEventLogRow("07"), 7);
  for (const char* name :
       {"", "7", "eventLogErrorEvent", "eventLogErrorEvent1", "eventLogErrorEvent1x", "eventLogErrorEventx1", "eventLogErrorEvent-1"})
    EXPECT_EQ(GetEventLogRow(name), -1) << name;
}

}  // namespace
}  // namespace ostrand
