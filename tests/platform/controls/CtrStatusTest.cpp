#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/CtrStatus.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

std::string kind(const std::string& name, const std::string& category) {
  return "<data:mappedParam name=\"" + name + "\"><data:mappedItem value=\"0\" key=\"off\"/><data:mappedItem value=\"1\" key=\"on\"" +
         (category.empty() ? "" : " category=\"" + category + "\"") + "/></data:mappedParam>";
}

struct CtrStatusTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<CtrStatus> status{new CtrStatus};

  CtrStatusTest() {
    status->Place(desktop, nullptr, "deviceStatus");
    status->SetMessenger(messenger);
  }
  ~CtrStatusTest() override {
    status->Terminate();
    status = nullptr;
    EXPECT_EQ(messenger->count(), 1u);
  }

  template <class T>
  T& get(std::string_view name) {
    for (Control* control : status->GetControls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, std::string(name));
  }
  ListView& list() { return get<ListView>("lsvStatus"); }

  static Document data(const std::vector<std::string>& bits = {"statusForceOutOfLimits", "statusSensorFailure", "statusHeatOutOfLimits",
                                                               "statusTestActive", "coldStart", "unknown"}) {
    std::string included;
    for (const std::string& bit : bits) included += "<data:includedParam name=\"" + bit + "\"/>";
    return dataSet({},
                   kind("outOfLimits", "outOfSpecification") + kind("failure", "failure") + kind("active", "functionCheck") + kind("coldStart", "") +
                       kind("due", "maintenance"),
                   "<data:requestGroup name=\"deviceStatus\">" + included + "</data:requestGroup>");
  }
  void read(const std::vector<std::pair<std::string, std::string>>& bits, const char* element = "integerVal") {
    std::string items;
    for (const auto& [name, value] : bits) items += itemXml(name, value, element);
    status->SetOnlineData(answer("name=\"deviceStatus\"", items));
  }
  // The rows without their indents, "name|state|category|new".
  std::vector<std::string> rows() {
    std::vector<std::string> all;
    for (int row = 1; row <= list().Count(); ++row) {
      std::string text = list().Cell(row, 1);
      text.erase(0, text.find_first_not_of(' '));
      for (int column = 2; column <= 4; ++column) text += "|" + list().Cell(row, column);
      all.push_back(text);
    }
    return all;
  }
};

TEST_F(CtrStatusTest, AnEmptyTreeIsNotRead) {
  status->SetOfflineData(dataSet({}));
  EXPECT_THAT(rows(), ElementsAre("deviceStatus|notRead|notKnown|"));
  EXPECT_FALSE(status->isKnown());
}

TEST_F(CtrStatusTest, EachKindOfBitIsABranchInTheOrderOfTheGroup) {
  status->SetOfflineData(data());
  EXPECT_THAT(rows(), ElementsAre("deviceStatus|notRead|notKnown|", "outOfLimits||notKnown|", "statusForceOutOfLimits|notRead||",
                                  "statusHeatOutOfLimits|notRead||", "failure||notKnown|", "statusSensorFailure|notRead||", "active||notKnown|",
                                  "statusTestActive|notRead||", "coldStart||notKnown|", "coldStart|notRead||"))
      << "a bit of no kind has no place";
  EXPECT_EQ(list().Cell(1, 1), "deviceStatus");
  EXPECT_EQ(list().Cell(2, 1), "    outOfLimits");
  EXPECT_EQ(list().Cell(3, 1), "        statusForceOutOfLimits");
}

TEST_F(CtrStatusTest, TheWorstCategoryRisesToBranchAndRoot) {
  status->SetOfflineData(data({"aOutOfLimits", "bOutOfLimits", "cFailure", "dActive", "eDue"}));
  const auto worstOf = [&](const std::vector<std::string>& raised) {
    std::vector<std::pair<std::string, std::string>> bits;
    for (const char* bit : {"aOutOfLimits", "bOutOfLimits", "cFailure", "dActive", "eDue"})
      bits.emplace_back(bit, std::count(raised.begin(), raised.end(), bit) ? "1" : "0");
    read(bits);
    return status->worst();
  };
  EXPECT_EQ(worstOf({}), Ne107::Good);
  EXPECT_EQ(list().Cell(1, 3), "good");
  EXPECT_EQ(worstOf({"eDue"}), Ne107::Maintenance);
  EXPECT_EQ(worstOf({"eDue", "bOutOfLimits"}), Ne107::OutOfSpecification);
  EXPECT_EQ(list().Cell(2, 3), "S  outOfSpecification") << "its branch";
  EXPECT_EQ(list().Cell(3, 3), "") << "not its neighbour";
  EXPECT_EQ(list().Cell(5, 3), "good");
  EXPECT_EQ(worstOf({"dActive", "bOutOfLimits"}), Ne107::FunctionCheck);
  EXPECT_EQ(worstOf({"dActive", "cFailure", "eDue"}), Ne107::Failure);
  EXPECT_EQ(list().Cell(1, 3), "F  failure");
  EXPECT_EQ(list().CellColor(1, 3), Color::errorText());
  EXPECT_EQ(list().CellColor(2, 3), Color::text());
  EXPECT_EQ(worstOf({}), Ne107::Good);
  EXPECT_EQ(list().CellColor(1, 3), Color::text());
}

TEST_F(CtrStatusTest, ABitWhoseMappingNamesNoCategoryAsksForMaintenance) {
  status->SetOfflineData(data());
  read({{"coldStart", "1"}});
  EXPECT_EQ(status->worst(), Ne107::Maintenance);
  EXPECT_EQ(rows().back(), "coldStart|on|M  maintenance|");
}

TEST_F(CtrStatusTest, WhatIsRaisedAndWasNotIsNew) {
  status->SetOfflineData(data({"aFailure", "bActive"}));
  read({{"aFailure", "1"}, {"bActive", "0"}});
  EXPECT_THAT(rows()[2], "aFailure|on|F  failure|") << "at the first read nothing is";
  read({{"aFailure", "1"}, {"bActive", "1"}});
  EXPECT_THAT(rows(), ElementsAre(testing::EndsWith("|new"), "failure||F  failure|", "aFailure|on|F  failure|", "active||C  functionCheck|new",
                                  "bActive|on|C  functionCheck|new"));
  read({{"aFailure", "1"}, {"bActive", "1"}});
  EXPECT_THAT(rows().back(), "bActive|on|C  functionCheck|") << "it was there at the last read";
  read({{"aFailure", "0"}, {"bActive", "1"}});
  read({{"aFailure", "1"}, {"bActive", "1"}});
  EXPECT_THAT(rows()[2], "aFailure|on|F  failure|new") << "once more";
}

TEST_F(CtrStatusTest, TheRootTellsTheLastReadAndItsFailure) {
  status->SetOfflineData(data({"aFailure"}));
  read({});
  EXPECT_EQ(list().Cell(1, 2), "1/5/2026 8:00:00 AM");
  desktop.wait(60);
  status->SetErrorData(answer("name=\"deviceStatus\" errorCode=\"communicationError\""));
  EXPECT_EQ(list().Cell(1, 2), "syncError");
  read({{"aFailure", "1"}});
  EXPECT_EQ(list().Cell(1, 2), "1/5/2026 8:01:00 AM");
  status->SetErrorData(Document());
  EXPECT_EQ(rows()[2], "aFailure|on|F  failure|new") << "the tree stands";
  status->SetOfflineData(data({"aFailure"}));
  EXPECT_THAT(rows(), ElementsAre("deviceStatus|notRead|notKnown|", "failure||notKnown|", "aFailure|notRead||")) << "another data set begins anew";
}

TEST_F(CtrStatusTest, ValuesOfEveryForm) {
  status->SetOfflineData(data({"aFailure"}));
  const auto stateOf = [&](const std::string& value, const char* element) {
    read({{"aFailure", value}}, element);
    return list().Cell(3, 2);
  };
  EXPECT_EQ(stateOf("1", "integerVal"), "on");
  EXPECT_EQ(stateOf("0", "integerVal"), "off");
  EXPECT_EQ(stateOf("4", "integerVal"), "on");
  EXPECT_EQ(stateOf("0.0", "floatVal"), "off");
  EXPECT_EQ(stateOf("yes", "stringVal"), "on") << "a word is no zero";
  EXPECT_EQ(stateOf("", "integerVal"), "on") << "no value: the last one stands";
  EXPECT_EQ(stateOf("NaN", "floatVal"), "on");
  EXPECT_EQ(stateOf("0", "stringVal"), "off");
  EXPECT_EQ(stateOf("NaN", "floatVal"), "off");
  status->SetOnlineData(
      answer("name=\"deviceStatus\"",
             "<comm:item name=\"aFailure\"/><comm:item/><comm:other name=\"aFailure\"><comm:integerVal>1</comm:integerVal></comm:other>"));
  EXPECT_EQ(list().Cell(3, 2), "off");
}

TEST_F(CtrStatusTest, BitsThatTheDataSetDoesNotListFindTheirBranch) {
  read({{"aFailure", "1"}});
  EXPECT_EQ(list().Count(), 1) << "there is no data set yet";
  status->SetOfflineData(data({"aFailure"}));
  read({{"bFailure", "1"}, {"cActive", "0"}, {"dUnknown", "1"}, {"", "1"}});
  EXPECT_THAT(rows(),
              ElementsAre(testing::_, "failure||F  failure|", "aFailure|notRead||", "bFailure|on|F  failure|", "active||good|", "cActive|off||"));
}

TEST_F(CtrStatusTest, TheStateIsNotKnownBeforeEveryBitHasBeenTold) {
  status->SetOfflineData(data({"aFailure", "bFailure", "cActive"}));
  read({{"aFailure", "0"}});
  EXPECT_FALSE(status->isKnown());
  EXPECT_THAT(rows(), ElementsAre("deviceStatus|1/5/2026 8:00:00 AM|notKnown|", "failure||notKnown|", "aFailure|off||", "bFailure|notRead||",
                                  "active||notKnown|", "cActive|notRead||"));
  read({{"cActive", "1"}});
  EXPECT_THAT(rows()[0], testing::HasSubstr("|notKnown (C  functionCheck)|")) << "what is raised is told meanwhile";
  EXPECT_EQ(rows()[4], "active||C  functionCheck|new");
  EXPECT_EQ(list().CellColor(1, 3), Color::errorText());
  read({{"bFailure", "NaN"}});
  EXPECT_FALSE(status->isKnown()) << "a bit without a value has not been told";
  read({{"bFailure", "0"}, {"cActive", "0"}});
  EXPECT_TRUE(status->isKnown());
  EXPECT_THAT(rows(), ElementsAre("deviceStatus|1/5/2026 8:00:00 AM|good|", "failure||good|", "aFailure|off||", "bFailure|off||", "active||good|",
                                  "cActive|off||"));
}

TEST_F(CtrStatusTest, AnswersToOtherRequestsPassBy) {
  status->SetOfflineData(data({"aFailure"}));
  const std::vector<std::string> before = rows();
  for (const char* name : {"loopTest", "values", "date_deviceStatus", "deviceStatu", ""}) {
    status->SetOnlineData(answer("name=\"" + std::string(name) + "\" isFinal=\"1\"", itemXml("aFailure", "1", "integerVal")));
    status->SetErrorData(answer("name=\"" + std::string(name) + "\" errorCode=\"communicationError\""));
  }
  status->SetOnlineData(answer("isFinal=\"1\"", itemXml("aFailure", "1", "integerVal")));
  status->SetOnlineData(Document());
  status->SetErrorData(Document());
  EXPECT_EQ(rows(), before);
  EXPECT_FALSE(status->isKnown());
}

TEST_F(CtrStatusTest, ASearchShowsTheLeavesThatHoldIt) {
  status->SetOfflineData(data({"motorFailure", "sensorFailure", "sensorActive"}));
  read({{"motorFailure", "1"}, {"sensorFailure", "0"}, {"sensorActive", "0"}});
  auto& search = get<TextBox>("txtSearch");
  search.type("SENSOR");
  EXPECT_THAT(rows(),
              ElementsAre(testing::HasSubstr("|F  failure|"), "failure||F  failure|", "sensorFailure|off||", "active||good|", "sensorActive|off||"))
      << "what is above a leaf tells of all bits";
  read({{"sensorActive", "1"}});
  EXPECT_EQ(rows().back(), "sensorActive|on|C  functionCheck|new") << "a search stands while the tree is read";
  search.type("sensora");
  EXPECT_EQ(rows().size(), 3u);
  search.type("pump");
  EXPECT_EQ(rows().size(), 1u);
  search.type("");
  EXPECT_EQ(rows().size(), 6u);
}

TEST_F(CtrStatusTest, TextsComeFromTheTable) {
  status->SetOfflineData(data({"aFailure", "bActive"}));
  read({});
  read({{"aFailure", "1"}});
  status->Localize(messenger->textTable);
  EXPECT_THAT(rows(), ElementsAre("T:deviceStatus|1/5/2026 8:00:00 AM|T:notKnown (F  T:failure)|T:new", "T:failure||F  T:failure|T:new",
                                  "T:aFailure|T:on|F  T:failure|T:new", "T:active||T:notKnown|", "T:bActive|T:notRead||"));
  EXPECT_EQ(list().Header(1), "T:status");
  EXPECT_EQ(list().Header(4), "T:newSinceLastRead");
  EXPECT_EQ(get<Label>("lblSearch").Caption(), "T:search");
  get<TextBox>("txtSearch").type("t:a");
  EXPECT_EQ(rows().size(), 3u) << "what is searched is what is read on the screen";
}

TEST_F(CtrStatusTest, ATextTableThatFailsIsReportedAndTheTreeStands) {
  status->SetOfflineData(data({"aFailure"}));
  calls.fail("GetText", 1);
  messenger->announce("CtrStatus ILocalizable_Localize: ", 440);
  status->Localize(messenger->textTable);
  calls.fail("GetText", 1);
  messenger->announce("CtrStatus ITaviDataUser_setOnlineData: ", 440);
  read({{"aFailure", "1"}});
  read({{"aFailure", "1"}});
  EXPECT_EQ(rows()[2], "T:aFailure|T:on|F  T:failure|");
}

TEST_F(CtrStatusTest, IsAViewOfItsOwn) {
  status->SetSelectedView("deviceStatus");
  EXPECT_EQ(status->GetSelectedView(), "deviceStatus");
  status->RequestFocus();
  EXPECT_EQ(status->focused(), &list());
  status->SetSelectedView("loopTest");
  EXPECT_EQ(status->GetSelectedView(), "");
  EXPECT_TRUE(status->LeaveSelectedView());
  status->Resize(9000, 6000);
  EXPECT_EQ(list().Width(), 9000);
  EXPECT_EQ(list().Top() + list().Height(), 6000);
  status->Resize(9000, 100);
  EXPECT_EQ(list().Height(), 0);
  status->PrepareToRelease();
  EXPECT_FALSE(status->GetMessenger());
  read({{"aFailure", "1"}});
  EXPECT_THAT(calls.take(), IsEmpty());
}

}  // namespace
}  // namespace ostrand
