#include "platform/controls/CtrMonitoring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/Query.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/RecordingProbe.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct CtrMonitoringTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<CtrMonitoring> monitoring{new CtrMonitoring};

  CtrMonitoringTest() {
    monitoring->Place(desktop, nullptr, "live");
    monitoring->SetMessenger(messenger);
  }
  ~CtrMonitoringTest() override {
    monitoring->Terminate();
    monitoring = nullptr;
    EXPECT_EQ(messenger->count(), 1u);
    EXPECT_EQ(messenger->listeners(), 0u);
  }

  Document data() {
    return dataSet(parameterXml("consistency", "3.5", "type=\"floatVal\" unit=\"%Cs\" decimals=\"2\"") +
                       parameterXml("temperature", "20", "type=\"floatVal\" unit=\"degC\" decimals=\"1\"") +
                       parameterXml("text", "on", "type=\"stringVal\"") + parameterXml("grade", "1", "type=\"integerVal\"") +
                       parameterXml("torque", "2", "type=\"floatVal\" unit=\"Nm\""),
                   "<data:mappedParam name=\"grade\">" + choice("1", "grade1") + choice("2", "grade2") + "</data:mappedParam>",
                   "<data:requestGroup name=\"live\"><data:includedParam name=\"consistency\"/><data:includedParam name=\"missing\"/>"
                   "<data:includedParam name=\"temperature\"/></data:requestGroup>");
  }
  static Document online(const std::string& items) { return answer("name=\"live\" access=\"read\" responseStatus=\"ok\"", items); }
  ListView& list() { return static_cast<ListView&>(*monitoring->GetControls().front()); }
  std::vector<std::string> rows() {
    std::vector<std::string> all;
    for (int row = 1; row <= list().Count(); ++row)
      all.push_back(list().Cell(row, 1) + "|" + list().Cell(row, 2) + "|" + list().Cell(row, 3) + "|" + list().Cell(row, 4));
    return all;
  }
};

TEST_F(CtrMonitoringTest, BeginsWithTheParametersOfItsGroup) {
  EXPECT_THAT(rows(), IsEmpty());
  monitoring->SetOfflineData(data());
  EXPECT_THAT(rows(), ElementsAre("consistency|3.50|%Cs|", "temperature|20.0|degC|"));
  EXPECT_EQ(list().CellColor(1, 2), Color::disabledText()) << "not read yet";
  monitoring->SetImportData(data());
  EXPECT_EQ(list().Count(), 2) << "a data set replaces the one before";
}

TEST_F(CtrMonitoringTest, WithoutItsGroupItBeginsEmpty) {
  monitoring->SetOfflineData(data());
  monitoring->SetOfflineData(dataSet(parameterXml("consistency", "1")));
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(CtrMonitoringTest, AnswersOfOtherGroupsBringValuesButNoRows) {
  monitoring->SetOfflineData(data());
  monitoring->SetOnlineData(
      answer("name=\"recipes\" access=\"read\" responseStatus=\"ok\"", itemXml("temperature", "21.26", "floatVal") + itemXml("text", "off")));
  EXPECT_THAT(rows(), ElementsAre("consistency|3.50|%Cs|", "temperature|21.3|degC|"));
}

TEST_F(CtrMonitoringTest, TakesInEveryItemThatHasAParameter) {
  monitoring->SetOfflineData(data());
  monitoring->SetOnlineData(online(itemXml("temperature", "21.26", "floatVal") + itemXml("unknown", "1", "floatVal") + itemXml("text", "off") +
                                   itemXml("grade", "2", "integerVal") + "<comm:other name=\"torque\"/><comm:item name=\"torque\"/>"));
  EXPECT_THAT(rows(), ElementsAre("consistency|3.50|%Cs|", "temperature|21.3|degC|", "text|off||", "grade|grade2||", "torque||Nm|"));
  EXPECT_EQ(list().CellColor(1, 2), Color::disabledText());
  EXPECT_EQ(list().CellColor(2, 2), Color::text());
}

TEST_F(CtrMonitoringTest, AnAnswerMayBearAnotherUnit) {
  monitoring->SetOfflineData(data());
  const auto temperature = [&](const char* value, const char* unit) {
    monitoring->SetOnlineData(
        online("<comm:item name=\"temperature\" unit=\"" + std::string(unit) + "\"><comm:floatVal>" + value + "</comm:floatVal></comm:item>"));
    return list().Cell(2, 2);
  };
  EXPECT_EQ(temperature("68", "degF"), "20.0");
  EXPECT_EQ(temperature("21", "degC"), "21.0");
  EXPECT_EQ(temperature("22", "Nm"), "22 Nm") << "as the device told it, and no point of the trend";
  EXPECT_THAT(monitoring->trend(2), testing::ElementsAre(testing::DoubleNear(20, 1e-9), 21));
}

TEST_F(CtrMonitoringTest, ACodedValueIsFoundByItsNumberToo) {
  monitoring->SetOfflineData(data());
  monitoring->SetOnlineData(online(itemXml("grade", "2.0", "integerVal")));
  EXPECT_EQ(list().Cell(3, 2), "grade2");
}

TEST_F(CtrMonitoringTest, WithoutADataSetAnswersPassBy) {
  monitoring->SetOnlineData(online(itemXml("temperature", "1", "floatVal")));
  EXPECT_THAT(rows(), IsEmpty());
  monitoring->SetOfflineData(data());
  monitoring->SetOnlineData(Document::read("<other/>"));
  monitoring->SetErrorData(online(itemXml("temperature", "1", "floatVal")));
  EXPECT_EQ(list().Cell(2, 2), "20.0") << "an error answer changes no value";
}

TEST_F(CtrMonitoringTest, KeepsATrendOfWhatCame) {
  monitoring->SetOfflineData(data());
  for (int i = 1; i <= 61; ++i) monitoring->SetOnlineData(online(itemXml("temperature", std::to_string(i), "floatVal")));
  monitoring->SetOnlineData(online(itemXml("temperature", "NaN", "floatVal")));
  EXPECT_EQ(list().Cell(2, 2), "NaN");
  const std::vector<double> trend = monitoring->trend(2);
  ASSERT_EQ(trend.size(), CtrMonitoring::kTrendLength);
  EXPECT_EQ(trend.front(), 2.0);
  EXPECT_EQ(trend.back(), 61.0) << "what is no number is no point";
  EXPECT_THAT(monitoring->trend(1), IsEmpty());
}

TEST_F(CtrMonitoringTest, PaintsTheTrendFromLowToHigh) {
  monitoring->SetOfflineData(data());
  monitoring->SetOnlineData(online(itemXml("temperature", "1", "floatVal")));
  EXPECT_EQ(list().Cell(2, 4), "") << "one point is no trend";
  monitoring->SetOnlineData(online(itemXml("temperature", "1", "floatVal")));
  EXPECT_EQ(list().Cell(2, 4), "▅▅");
  monitoring->SetOnlineData(online(itemXml("temperature", "8", "floatVal")));
  EXPECT_EQ(list().Cell(2, 4), "▁▁█");
}

TEST_F(CtrMonitoringTest, FollowsUnitsLocaleAndLanguage) {
  monitoring->SetOfflineData(data());
  messenger->converter->userUnits["temperature"] = "degF";
  messenger->raiseUnits();
  EXPECT_EQ(rows()[1], "temperature|68.0|degF|");
  desktop.setLocale("sv");
  monitoring->Localize(messenger->textTable);
  EXPECT_THAT(rows(), ElementsAre("L:consistency|3,50|S:%Cs:unit|", "L:temperature|68,0|S:degF:unit|"));
  EXPECT_EQ(list().Header(1), "T:variable");
  EXPECT_EQ(list().Header(4), "T:trend");
  monitoring->SetOnlineData(online(itemXml("grade", "1", "integerVal")));
  EXPECT_EQ(rows()[2], "L:grade|T:grade1||");
  monitoring->Localize(nullptr);
  EXPECT_EQ(rows()[2], "grade|grade1||");
}

TEST_F(CtrMonitoringTest, IsAViewByItself) {
  EXPECT_TRUE(query<ITaviView>(monitoring.get()));
  EXPECT_TRUE(query<ITaviDataUser>(monitoring.get()));
  EXPECT_TRUE(query<ILocalizable>(monitoring.get()));
  EXPECT_TRUE(query<ITaviComponent>(monitoring.get()));
  monitoring->SetSelectedView("live");
  EXPECT_EQ(monitoring->GetSelectedView(), "live");
  monitoring->SetSelectedView("other");
  EXPECT_EQ(monitoring->GetSelectedView(), "");
  EXPECT_TRUE(monitoring->LeaveSelectedView());
  EXPECT_EQ(monitoring->GetMessenger(), Ref<Messenger>(messenger));
  monitoring->Resize(5000, 2000);
  EXPECT_EQ(list().Width(), 5000);
  EXPECT_EQ(list().Height(), 2000);
  list().Enabled(false);
  messenger->announce("CtrMonitoring ITaviView_RequestFocus: ", 5);
  monitoring->RequestFocus();
  monitoring->PrepareToRelease();
  EXPECT_FALSE(monitoring->GetMessenger());
}

TEST_F(CtrMonitoringTest, FailuresAreReportedUnderItsName) {
  calls.fail("GetLabel");
  messenger->announce("CtrMonitoring ILocalizable_Localize: ", 440);
  monitoring->SetOfflineData(data());
  monitoring->Localize(messenger->textTable);
  calls.fail("GetUnitConverter");
  messenger->announce("CtrMonitoring mMessenger_ViewSetUnits: ", 440);
  messenger->raiseUnits();
  calls.fail("GetUnitConverter");
  messenger->announce("CtrMonitoring ITaviDataUser_setOfflineData: ", 440);
  monitoring->SetOfflineData(data());
  messenger->announce("CtrMonitoring ITaviDataUser_setOnlineData: ", 91);
  monitoring->SetOnlineData(Document());
}

TEST_F(CtrMonitoringTest, TheHostMayBringAnotherDataSetWhileItIsAsked) {
  monitoring->Localize(messenger->textTable);
  monitoring->SetOfflineData(data());
  messenger->dropReports();
  calls.during("GetLabel", [&] { monitoring->SetOfflineData(dataSet("")); });
  monitoring->SetOfflineData(data());
  monitoring->SetOfflineData(data());
  calls.during("GetUnitConverter", [&] { monitoring->SetOfflineData(dataSet("")); });
  monitoring->SetOnlineData(online(itemXml("torque", "1", "floatVal")));
  monitoring->SetOfflineData(data());
  calls.during("GetText", [&] { monitoring->SetOfflineData(dataSet("")); });
  monitoring->Localize(messenger->textTable);
  monitoring->SetOfflineData(data());
  EXPECT_EQ(list().Count(), 2) << "and goes on as if nothing had been";
}

}  // namespace
}  // namespace ostrand
