#include "bus/BusHart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct BusHartTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> host{new FakeMessenger(calls)};
  Ref<LastError> lastError{new LastError};
  Ref<IBusDependent> bus{new BusHart(desktop, lastError)};

  bool calibrate(const std::string& items, const std::string& attributes = "name=\"sampling\" isFinal=\"1\"") {
    return bus->CalibrationSetOnlineData(answer(attributes, items), host);
  }
  static std::string sample(int n, const std::string& deviation, const std::string& average) {
    const std::string name = "sample" + std::to_string(n);
    return itemXml(name + "Deviation", deviation, "floatVal") + itemXml(name + "ConsistencyAverage", average, "floatVal");
  }
};

TEST_F(BusHartTest, WhatFollowsAWriteHasNothingToDo) {
  EXPECT_EQ(bus->GetBusType(), "Hart");
  EXPECT_TRUE(bus->SetActiveRecipe(host));
  EXPECT_TRUE(bus->TemperatureApply(host));
  EXPECT_TRUE(bus->RecipesApply(host));
  EXPECT_TRUE(bus->LaboratoryResultsApply(host));
  EXPECT_TRUE(bus->MeasurementSetOnlineData(answer("name=\"activeRecipe\""), host));
  for (const char* tag : {"resetErrorEventLog", "resetWarningEventLog", "any", ""}) EXPECT_TRUE(bus->ResetEventLog(host, tag));
  EXPECT_THAT(calls.take(), IsEmpty());
}

TEST_F(BusHartTest, ASampleStartsByOneWrite) {
  const LocalTime before = desktop.now();
  EXPECT_TRUE(bus->StartSampling1(host));
  EXPECT_TRUE(bus->StartSampling2(host));
  EXPECT_THAT(
      calls.take(),
      ElementsAre("SendRequest \"sampling\" | <communicationRequest name=\"sampling\" access=\"write\"><item name=\"sampleStart\" unit=\"noUnit\">"
                  "<integerVal>0</integerVal></item></communicationRequest>",
                  "SendRequest \"sampling\" | <communicationRequest name=\"sampling\" access=\"write\"><item name=\"sampleStart\" unit=\"noUnit\">"
                  "<integerVal>1</integerVal></item></communicationRequest>"));
  EXPECT_EQ(desktop.now(), before) << "nothing waits";
}

TEST_F(BusHartTest, ASampleStopsByOneRead) {
  EXPECT_TRUE(bus->StopSampling1(host));
  EXPECT_THAT(
      calls.take(),
      ElementsAre(
          "ReadRequest 0 | <?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"sampling\" access=\"read\">"
          "<item name=\"sample1Deviation\" unit=\"noUnit\"><floatVal/></item><item name=\"sample1ConsistencyAverage\" unit=\"%\"><floatVal/></item>"
          "<item name=\"sample1ShearForceAverage\" unit=\"N\"><floatVal/></item></communicationRequest></dtm>"));
  EXPECT_TRUE(bus->StopSampling2(host));
  EXPECT_THAT(
      calls.take(),
      ElementsAre(
          "ReadRequest 0 | <?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"sampling\" access=\"read\">"
          "<item name=\"sample2Deviation\" unit=\"noUnit\"><floatVal/></item><item name=\"sample2ConsistencyAverage\" unit=\"%\"><floatVal/></item>"
          "<item name=\"sample2ShearForceAverage\" unit=\"N\"><floatVal/></item></communicationRequest></dtm>"));
}

TEST_F(BusHartTest, FailingSampleOperationsReportAndAnswerFalse) {
  using Operation = bool (IBusDependent::*)(const Ref<Messenger>&);
  for (const auto& [operation, name, call] :
       {std::tuple<Operation, const char*, const char*>{&IBusDependent::StartSampling1, "StartSampling1", "SendRequest"},
        {&IBusDependent::StartSampling2, "StartSampling2", "SendRequest"},
        {&IBusDependent::StopSampling1, "StopSampling1", "ReadRequest"},
        {&IBusDependent::StopSampling2, "StopSampling2", "ReadRequest"}}) {
    calls.fail(call, 1, 70, "busy");
    host->announce(std::string("BusHart IBusDependent_") + name + ": ", 70);
    EXPECT_FALSE((bus.get()->*operation)(host)) << name;
    EXPECT_EQ(lastError->error.number, 70);
    EXPECT_EQ(lastError->error.description, "busy");
    EXPECT_FALSE((bus.get()->*operation)(nullptr)) << "without a messenger the report is dropped";
    EXPECT_EQ(lastError->error.number, 91);
  }
}

// --- the deviation of a sample

TEST_F(BusHartTest, WarnsOfADeviationAboveFivePerCent) {
  EXPECT_TRUE(calibrate(sample(1, "0.5", "10")));
  EXPECT_THAT(calls.take(), IsEmpty()) << "exactly 5.0";
  EXPECT_TRUE(calibrate(sample(1, "0.51", "10")));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "warning" "sample1DeviationLarge")"));
  EXPECT_TRUE(calibrate(sample(1, "0.51", "10")));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "warning" "sample1DeviationLarge")")) << "the check has no memory";
}

TEST_F(BusHartTest, TakesNoAbsoluteValueAndNeverDividesByZero) {
  for (const auto& [deviation, average, warns] :
       {std::tuple{"-9", "10", false}, {"9", "-10", false}, {"-9", "-10", true}, {"9", "0", false}, {"9", "0.0", false}, {"0", "10", false}}) {
    EXPECT_TRUE(calibrate(sample(2, deviation, average)));
    EXPECT_EQ(!calls.take().empty(), warns) << deviation << " of " << average;
  }
}

TEST_F(BusHartTest, EachSampleIsJudgedByItself) {
  EXPECT_TRUE(calibrate(sample(2, "1", "10")));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "warning" "sample2DeviationLarge")"));
  EXPECT_TRUE(calibrate(sample(1, "1", "10") + sample(2, "1", "10")));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "warning" "sample1DeviationLarge")", R"(ShowMessage "warning" "sample2DeviationLarge")"));
  EXPECT_TRUE(calibrate(itemXml("sample1Deviation", "9", "floatVal") + sample(2, "1", "10")));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "warning" "sample2DeviationLarge")")) << "without an average the next sample follows";
  EXPECT_TRUE(calibrate(itemXml("sample1ConsistencyAverage", "x", "floatVal")));
  EXPECT_THAT(calls.take(), IsEmpty()) << "without a deviation nothing is read";
}

TEST_F(BusHartTest, NumbersHaveAPointInEveryLocale) {
  for (const char* locale : {"en", "fi", "sv", "de"}) {
    desktop.setLocale(locale);
    calibrate(sample(1, "0.51", "10.0"));
    EXPECT_EQ(calls.take().size(), 1u) << locale;
    calibrate(sample(1, "0.51", "1000.0"));
    EXPECT_THAT(calls.take(), IsEmpty()) << locale;
  }
}

TEST_F(BusHartTest, WhatCannotBeReadEndsTheOperation) {
  constexpr const char* kPrefix = "BusHart IBusDependent_CalibrationSetOnlineData: ";
  host->announce(kPrefix, 13);
  EXPECT_FALSE(calibrate(sample(1, "NaN", "10") + sample(2, "1", "10"), "name=\"laboratoryResults\" isFinal=\"1\""));
  host->announce(kPrefix, 13);
  EXPECT_FALSE(calibrate(sample(1, "1", "")));
  host->announce(kPrefix, 91);
  EXPECT_FALSE(calibrate(itemXml("sample1Deviation", "1") + sample(2, "1", "10"))) << "a text is no float value";
  EXPECT_THAT(calls.take(), testing::Each(testing::StartsWith("ReportError"))) << "the remaining steps do not run";
  calls.fail("ShowMessage");
  host->announce(kPrefix, 440);
  EXPECT_FALSE(calibrate(sample(1, "1", "10") + sample(2, "1", "10")));
}

// --- final answers

TEST_F(BusHartTest, TheFinalLaboratoryResultsAreTold) {
  for (const auto& [attributes, tells] : {std::pair{"name=\"laboratoryResults\" isFinal=\"1\"", true},
                                          {"name=\"laboratoryResults\" isFinal=\"0\"", false},
                                          {"name=\"temperatureCalibration\" isFinal=\"1\"", false},
                                          {"name=\"laboratoryresults\" isFinal=\"1\"", false}}) {
    EXPECT_TRUE(calibrate("", attributes));
    EXPECT_EQ(calls.take(), tells ? std::vector<std::string>{R"(ShowMessage "laboratoryResults" "calibrationWasSuccessfullPleaseUpdateRecipesView")"}
                                  : std::vector<std::string>{})
        << attributes;
  }
}

TEST_F(BusHartTest, AMissingNameOrFinalFlagIsAFailure) {
  constexpr const char* kCalibration = "BusHart IBusDependent_CalibrationSetOnlineData: ";
  constexpr const char* kAdvanced = "BusHart IBusDependent_AdvancedSetOnlineData: ";
  for (const char* attributes : {"isFinal=\"1\"", "name=\"laboratoryResults\""}) {
    host->announce(kCalibration, 91);
    EXPECT_FALSE(calibrate("", attributes));
  }
  EXPECT_TRUE(calibrate("", "name=\"other\"")) << "the flag is read for its own answer only";
  host->announce(kAdvanced, 91);
  EXPECT_TRUE(bus->AdvancedSetOnlineData(answer("name=\"temperatureCalibration\""), host)) << "True also after a failure";
  host->announce(kCalibration, 91);
  EXPECT_FALSE(bus->CalibrationSetOnlineData(Document::read("<comm:dtm/>"), host));
  host->announce(kAdvanced, 91);
  EXPECT_TRUE(bus->AdvancedSetOnlineData(Document(), host));
}

TEST_F(BusHartTest, TheFinalTemperatureCalibrationIsTold) {
  const auto advanced = [&](const char* attributes) { return bus->AdvancedSetOnlineData(answer(attributes), host); };
  EXPECT_TRUE(advanced("name=\"temperatureCalibration\" isFinal=\"1\""));
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "temperatureCalibration" "calibrationDoneReturnControlLoopToAutomaticControl")"));
  EXPECT_TRUE(advanced("name=\"temperatureCalibration\" isFinal=\"0\""));
  EXPECT_TRUE(advanced("name=\"laboratoryResults\" isFinal=\"1\""));
  EXPECT_THAT(calls.take(), IsEmpty());
  EXPECT_TRUE(bus->AdvancedSetOnlineData(answer("name=\"temperatureCalibration\" isFinal=\"1\"", sample(1, "9", "1")), host));
  EXPECT_EQ(calls.take().size(), 1u) << "deviations are not judged here";
}

TEST(IBusDependentTest, TheDefaultBodiesDoNothing) {
  const Ref<IBusDependent> bus(new IBusDependent);
  EXPECT_EQ(bus->GetBusType(), "");
  EXPECT_FALSE(bus->SetActiveRecipe(nullptr) || bus->TemperatureApply(nullptr) || bus->RecipesApply(nullptr) || bus->LaboratoryResultsApply(nullptr));
  EXPECT_FALSE(bus->StartSampling1(nullptr) || bus->StopSampling1(nullptr) || bus->StartSampling2(nullptr) || bus->StopSampling2(nullptr));
  EXPECT_FALSE(bus->AdvancedSetOnlineData({}, nullptr) || bus->CalibrationSetOnlineData({}, nullptr) || bus->MeasurementSetOnlineData({}, nullptr));
  EXPECT_FALSE(bus->ResetEventLog(nullptr, "resetErrorEventLog"));
}

}  // namespace
}  // namespace ostrand
