#include "bus/BusProfibus.h"

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

std::string write(int action, const std::string& name) {
  return "SendRequest \"" + name + "\" | <communicationRequest name=\"" + name +
         "\" access=\"write\"><item name=\"executeAction\" unit=\"noUnit\"><integerVal>" + std::to_string(action) +
         "</integerVal></item></communicationRequest>";
}
std::string read(const std::string& name, std::initializer_list<const char*> items) {
  std::string text = "ReadRequest 0 | <?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"" +
                     name + "\" access=\"read\">";
  for (const char* item : items) text += std::string("<item name=\"") + item + "\" unit=\"noUnit\"/>";
  return text + "</communicationRequest></dtm>";
}
std::string askStatus(const std::string& name) { return read(name, {"actionStatus"}); }
const std::string kReadSamples = read("sampling", {"sample1ConsistencyAverage", "sample1Deviation", "sample2ConsistencyAverage", "sample2Deviation"});
const std::string kReadPulpTypes = read("recipes", {"recipe1PulpType", "recipe2PulpType", "recipe3PulpType", "recipe4PulpType", "recipe5PulpType",
                                                    "recipe6PulpType", "recipe7PulpType", "recipe8PulpType"});
std::string shown(const std::string& title, const std::string& message) { return "ShowMessage \"" + title + "\" \"" + message + "\""; }

struct BusProfibusTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> host{new FakeMessenger(calls)};
  Ref<LastError> lastError{new LastError};
  Ref<BusProfibus> bus{new BusProfibus(desktop, lastError)};
  using Operation = bool (IBusDependent::*)(const Ref<Messenger>&);
  using Judge = bool (IBusDependent::*)(const Document&, const Ref<Messenger>&);

  BusProfibusTest() {
    desktop.onWait = [this](double seconds) { calls.lines.push_back("wait " + std::to_string(static_cast<int>(seconds * 10)) + "/10"); };
  }
  bool run(Operation operation) { return (bus.get()->*operation)(host); }
  // Brings the strategy to await an action, and forgets how.
  void await(Operation operation) {
    run(operation);
    calls.take();
  }
  // A status document: items with value 1, those with a leading "!" with value 0.
  static Document status(std::initializer_list<const char*> items) {
    std::string xml;
    for (const char* item : items) xml += *item == '!' ? itemXml(item + 1, "0", "integerVal") : itemXml(item, "1", "integerVal");
    return answer("name=\"any\"", xml);
  }
  std::vector<std::string> calibrate(const Document& doc) { return judge(&IBusDependent::CalibrationSetOnlineData, doc); }
  std::vector<std::string> judge(Judge operation, const Document& doc) {
    EXPECT_TRUE((bus.get()->*operation)(doc, host));
    return calls.take();
  }
};

// --- operations

TEST_F(BusProfibusTest, TellsItsType) { EXPECT_EQ(bus->GetBusType(), "Profibus"); }

TEST_F(BusProfibusTest, AnApplyPollsAfterOneSecond) {
  for (const auto& [operation, name] : {std::pair<Operation, const char*>{&IBusDependent::SetActiveRecipe, "activeRecipe"},
                                        {&IBusDependent::TemperatureApply, "temperatureCalibration"},
                                        {&IBusDependent::RecipesApply, "recipes"},
                                        {&IBusDependent::LaboratoryResultsApply, "laboratoryResults"}}) {
    const LocalTime before = desktop.now();
    EXPECT_TRUE(run(operation));
    EXPECT_THAT(calls.take(), ElementsAre("wait 10/10", askStatus(name)));
    EXPECT_EQ(desktop.now() - before, std::chrono::seconds(1));
  }
}

TEST_F(BusProfibusTest, AStartWritesTheActionAndPolls) {
  EXPECT_TRUE(run(&IBusDependent::StartSampling1));
  EXPECT_THAT(calls.take(), ElementsAre(write(3, "sampling"), "wait 10/10", askStatus("sampling")));
  EXPECT_TRUE(run(&IBusDependent::StartSampling2));
  EXPECT_THAT(calls.take(), ElementsAre(write(4, "sampling"), "wait 10/10", askStatus("sampling")));
}

TEST_F(BusProfibusTest, AStopWritesTheActionAndReadsBothSamplesAfterTwoSeconds) {
  const LocalTime before = desktop.now();
  EXPECT_TRUE(run(&IBusDependent::StopSampling1));
  EXPECT_THAT(calls.take(), ElementsAre(write(5, "sampling"), "wait 20/10", kReadSamples));
  EXPECT_EQ(desktop.now() - before, std::chrono::seconds(2));
  EXPECT_TRUE(run(&IBusDependent::StopSampling2));
  EXPECT_THAT(calls.take(), ElementsAre(write(6, "sampling"), "wait 20/10", kReadSamples));
}

TEST_F(BusProfibusTest, AnEventLogIsResetByOneWrite) {
  for (const auto& [tag, action] :
       {std::pair{"resetErrorEventLog", 150}, {"resetWarningEventLog", 151}, {"resetInfoEventLog", 152}, {"resetEventLog", 0}, {"", 0}}) {
    EXPECT_TRUE(bus->ResetEventLog(host, tag));
    EXPECT_THAT(calls.take(), ElementsAre(write(action, "resetingEventLog"))) << tag;
  }
}

// --- the verdict

TEST_F(BusProfibusTest, OnlyAStatusDocumentIsLookedAt) {
  await(&IBusDependent::LaboratoryResultsApply);
  EXPECT_THAT(calibrate(answer("name=\"any\"", itemXml("sample2Quality", "1", "integerVal") + itemXml("xactionStatus", "1", "integerVal"))),
              IsEmpty());
  EXPECT_THAT(calibrate(answer("name=\"any\"")), IsEmpty());
  EXPECT_THAT(calibrate(status({"!actionStatusAnything"})),
              ElementsAre(shown("laboratoryResults", "calibrationWasSuccessfullPleaseUpdateRecipesView")));
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), ElementsAre(shown("laboratoryResults", "calibrationWasSuccessfullPleaseUpdateRecipesView")));
}

TEST_F(BusProfibusTest, NothingIsAwaitedAtFirst) {
  const Document doc = status({"actionStatusOK", "actionStatusInvalidSampleNumber", "actionStatusTempCorrectionTooLarge"});
  EXPECT_THAT(calibrate(doc), IsEmpty());
  EXPECT_THAT(judge(&IBusDependent::AdvancedSetOnlineData, doc), IsEmpty());
  EXPECT_THAT(judge(&IBusDependent::MeasurementSetOnlineData, doc), IsEmpty());
}

TEST_F(BusProfibusTest, AStartedSampleIsSilentUnlessItsNumberIsInvalid) {
  for (Operation start : {&IBusDependent::StartSampling1, &IBusDependent::StartSampling2}) {
    await(start);
    EXPECT_THAT(calibrate(status({"actionStatusOK", "actionStatusSamplingError"})), IsEmpty());
    EXPECT_THAT(calibrate(status({"actionStatusInvalidSampleNumber"})), ElementsAre(shown("error", "actionStatusInvalidSampleNumber")));
    EXPECT_THAT(calibrate(status({"actionStatusInvalidSampleNumber"})), ElementsAre(shown("error", "actionStatusInvalidSampleNumber")))
        << "every further document repeats the verdict";
  }
}

TEST_F(BusProfibusTest, AStoppedSampleIsJudgedOnce) {
  await(&IBusDependent::StopSampling1);
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), ElementsAre(shown("sampling", "actionStatusOK")));
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), IsEmpty());
  await(&IBusDependent::StopSampling1);
  EXPECT_THAT(calibrate(status({"sample1Quality", "!sample2Quality"})), ElementsAre(shown("error", "sample1DeviationLarge")));
  EXPECT_THAT(calibrate(status({"sample1Quality"})), IsEmpty());
  await(&IBusDependent::StopSampling2);
  EXPECT_THAT(calibrate(status({"sample1Quality", "!sample2Quality"})), ElementsAre(shown("sampling", "actionStatusOK")));
  await(&IBusDependent::StopSampling2);
  EXPECT_THAT(calibrate(status({"!sample1Quality", "sample2Quality"})), ElementsAre(shown("error", "sample2DeviationLarge")));
}

TEST_F(BusProfibusTest, TheSecondSamplesQualityAloneIsNoStatusDocument) {
  await(&IBusDependent::StopSampling2);
  EXPECT_THAT(calibrate(status({"sample2Quality"})), IsEmpty());
  EXPECT_THAT(calibrate(status({"sample2Quality", "!actionStatusOK"})), ElementsAre(shown("error", "sample2DeviationLarge")))
      << "it was still awaited";
}

TEST_F(BusProfibusTest, TheTemperatureCalibrationIsJudgedInItsOwnOperation) {
  await(&IBusDependent::TemperatureApply);
  EXPECT_THAT(judge(&IBusDependent::AdvancedSetOnlineData, status({"actionStatusTempCorrectionTooLarge"})),
              ElementsAre(shown("error", "actionStatusTempCorrectionTooLarge")));
  EXPECT_THAT(judge(&IBusDependent::AdvancedSetOnlineData, status({"actionStatusOK"})),
              ElementsAre(shown("temperatureCalibration", "calibrationDoneReturnControlLoopToAutomaticControl")));
  EXPECT_THAT(calibrate(status({"actionStatusTempCorrectionTooLarge"})), IsEmpty());
  EXPECT_THAT(judge(&IBusDependent::MeasurementSetOnlineData, status({"actionStatusOK"})), IsEmpty());
}

TEST_F(BusProfibusTest, TheActiveRecipeIsJudgedInItsOwnOperation) {
  await(&IBusDependent::SetActiveRecipe);
  const auto measured = [&](std::initializer_list<const char*> items) { return judge(&IBusDependent::MeasurementSetOnlineData, status(items)); };
  EXPECT_THAT(measured({"actionStatusInvalidRecipeNumber", "actionStatusRecipeNotCalibrated"}),
              ElementsAre(shown("error", "actionStatusInvalidRecipeNumber")));
  EXPECT_THAT(measured({"!actionStatusInvalidRecipeNumber", "actionStatusRecipeNotCalibrated"}),
              ElementsAre(shown("error", "actionStatusRecipeNotCalibrated")));
  EXPECT_THAT(measured({"actionStatusDeviceWriteFailed"}), ElementsAre(shown("activeRecipe", "actionStatusOK"))) << "that item is not tested";
  EXPECT_THAT(measured({"!actionStatusOK"}), ElementsAre(shown("activeRecipe", "actionStatusOK")));
  EXPECT_THAT(calibrate(status({"actionStatusInvalidRecipeNumber"})), IsEmpty());
  EXPECT_THAT(judge(&IBusDependent::AdvancedSetOnlineData, status({"actionStatusOK"})), IsEmpty());
}

TEST_F(BusProfibusTest, OfTheLaboratoryResultsTheFirstRaisedStatusIsTold) {
  await(&IBusDependent::LaboratoryResultsApply);
  EXPECT_THAT(calibrate(status({"actionStatusCalibrationError", "actionStatusCalibrationSuspicious", "actionStatusCalibrationSampleNotTaken"})),
              ElementsAre(shown("error", "actionStatusCalibrationSampleNotTaken")));
  EXPECT_THAT(calibrate(status({"actionStatusCalibrationError", "actionStatusCalibrationSuspicious"})),
              ElementsAre(shown("error", "actionStatusCalibrationSuspicious")));
  EXPECT_THAT(calibrate(status({"actionStatusCalibrationError"})), ElementsAre(shown("error", "actionStatusCalibrationError")));
  EXPECT_THAT(calibrate(status({"actionStatusOK", "actionStatusDeviceWriteFailed"})),
              ElementsAre(shown("laboratoryResults", "calibrationWasSuccessfullPleaseUpdateRecipesView")));
}

// Every action against every item that a status document may raise, in each of the three operations.
TEST_F(BusProfibusTest, EveryActionLooksAtItsOwnItemsOnly) {
  constexpr Judge kCalibration = &IBusDependent::CalibrationSetOnlineData;
  constexpr Judge kMeasurement = &IBusDependent::MeasurementSetOnlineData;
  constexpr Judge kAdvanced = &IBusDependent::AdvancedSetOnlineData;
  constexpr Judge kNowhere = nullptr;
  const char* const kItems[] = {"actionStatusOK",
                                "actionStatusInvalidSampleNumber",
                                "actionStatusTempCorrectionTooLarge",
                                "actionStatusInvalidPulpType",
                                "actionStatusInvalidRecipeNumber",
                                "actionStatusRecipeNotCalibrated",
                                "actionStatusCalibrationSampleNotTaken",
                                "actionStatusCalibrationSuspicious",
                                "actionStatusCalibrationError",
                                "sample1Quality",
                                "sample2Quality",
                                "actionStatusUpperCalPointInvalidValue",
                                "actionStatusLowerCalPointInvalidValue",
                                "actionStatusCalPointsSpanTooSmall",
                                "actionStatusDeviceWriteFailed",
                                "actionStatusNewValuesSameAsOld",
                                "actionStatusSamplingError",
                                "actionStatusSpecialGradePointInvalid",
                                "actionStatusInvalidCalibrationData",
                                "actionStatusDampingValueInvalid"};
  struct Action {
    const char* name;
    std::function<void()> start;
    Judge judgedIn;
    std::vector<std::pair<std::string, std::string>> errors;  // item, message
    std::string success;
  };
  const auto of = [&](Operation operation) { return [this, operation] { run(operation); }; };
  const auto reset = [&](const char* tag) { return [this, tag] { bus->ResetEventLog(host, tag); }; };
  const std::string kSampled = shown("sampling", "actionStatusOK");
  const Action kActions[] = {
      {"nothing yet", [] {}, kNowhere, {}, ""},
      {"start 1", of(&IBusDependent::StartSampling1), kCalibration, {{"actionStatusInvalidSampleNumber", "actionStatusInvalidSampleNumber"}}, ""},
      {"start 2", of(&IBusDependent::StartSampling2), kCalibration, {{"actionStatusInvalidSampleNumber", "actionStatusInvalidSampleNumber"}}, ""},
      {"stop 1", of(&IBusDependent::StopSampling1), kCalibration, {{"sample1Quality", "sample1DeviationLarge"}}, kSampled},
      {"stop 2", of(&IBusDependent::StopSampling2), kCalibration, {{"sample2Quality", "sample2DeviationLarge"}}, kSampled},
      {"temperature",
       of(&IBusDependent::TemperatureApply),
       kAdvanced,
       {{"actionStatusTempCorrectionTooLarge", "actionStatusTempCorrectionTooLarge"}},
       shown("temperatureCalibration", "calibrationDoneReturnControlLoopToAutomaticControl")},
      {"recipes",
       of(&IBusDependent::RecipesApply),
       kCalibration,
       {{"actionStatusInvalidPulpType", "actionStatusInvalidPulpType"}},
       shown("recipes", "actionStatusOK")},
      {"active recipe",
       of(&IBusDependent::SetActiveRecipe),
       kMeasurement,
       {{"actionStatusInvalidRecipeNumber", "actionStatusInvalidRecipeNumber"},
        {"actionStatusRecipeNotCalibrated", "actionStatusRecipeNotCalibrated"}},
       shown("activeRecipe", "actionStatusOK")},
      {"laboratory",
       of(&IBusDependent::LaboratoryResultsApply),
       kCalibration,
       {{"actionStatusCalibrationSampleNotTaken", "actionStatusCalibrationSampleNotTaken"},
        {"actionStatusCalibrationSuspicious", "actionStatusCalibrationSuspicious"},
        {"actionStatusCalibrationError", "actionStatusCalibrationError"}},
       shown("laboratoryResults", "calibrationWasSuccessfullPleaseUpdateRecipesView")},
      {"reset errors", reset("resetErrorEventLog"), kNowhere, {}, ""},
      {"reset warnings", reset("resetWarningEventLog"), kNowhere, {}, ""},
      {"reset information", reset("resetInfoEventLog"), kNowhere, {}, ""},
      {"reset what nobody knows", reset("reset"), kNowhere, {}, ""},
  };
  for (const Action& action : kActions) {
    for (Judge operation : {kCalibration, kMeasurement, kAdvanced}) {
      std::string all;
      for (const char* item : kItems) {
        all += itemXml(item, "1", "integerVal");
        bus = Ref<BusProfibus>(new BusProfibus(desktop, lastError));
        action.start();
        calls.take();
        std::vector<std::string> lines =
            judge(operation, answer("name=\"any\"", itemXml("actionStatusOther", "0", "integerVal") + itemXml(item, "1", "integerVal")));
        std::vector<std::string> expected;
        if (operation == action.judgedIn) {
          if (!action.success.empty()) expected = {action.success};
          for (const auto& [raised, message] : action.errors)
            if (raised == item) expected = {shown("error", message)};
        }
        if (expected == std::vector<std::string>{shown("error", "actionStatusInvalidPulpType")}) lines.resize(1);  // then the recipes are read back
        EXPECT_EQ(lines, expected) << action.name << ", " << item;
      }
      // Of all that are raised together the first one counts.
      bus = Ref<BusProfibus>(new BusProfibus(desktop, lastError));
      action.start();
      calls.take();
      std::vector<std::string> lines = judge(operation, answer("name=\"any\"", all));
      if (operation == action.judgedIn) {
        ASSERT_FALSE(lines.empty()) << action.name;
        EXPECT_EQ(lines.front(), shown("error", action.errors.front().second)) << action.name;
      } else {
        EXPECT_THAT(lines, IsEmpty()) << action.name;
      }
    }
  }
}

TEST_F(BusProfibusTest, OnlyASampleIsForgottenAfterItsVerdict) {
  for (const auto& [operation, times] : {std::pair<Operation, std::size_t>{&IBusDependent::StopSampling1, 1},
                                         {&IBusDependent::StopSampling2, 1},
                                         {&IBusDependent::RecipesApply, 3},
                                         {&IBusDependent::LaboratoryResultsApply, 3}}) {
    await(operation);
    std::size_t told = 0;
    for (int i = 0; i < 3; ++i) told += calibrate(status({"actionStatusOK"})).size();
    EXPECT_EQ(told, times);
  }
}

TEST_F(BusProfibusTest, TheGeneralFormOfTheTestWantsNothingButOK) {
  struct Open : BusProfibus {
    using BusProfibus::BusProfibus;
    using BusProfibus::CheckAllActionStatus;
  };
  const Ref<Open> open(new Open(desktop, lastError));
  EXPECT_TRUE(open->CheckAllActionStatus(status({})));
  EXPECT_TRUE(open->CheckAllActionStatus(status({"actionStatusOK", "!actionStatusSamplingError", "sample1Quality"})));
  EXPECT_FALSE(open->CheckAllActionStatus(status({"actionStatusOK", "actionStatusSamplingError"})));
  EXPECT_FALSE(open->CheckAllActionStatus(status({"actionStatusSamplingError"})));
  open->MeasurementSetOnlineData(status({"actionStatusOK"}), host);
  host->announce("BusProfibus CheckAllActionStatus: ", 91);
  EXPECT_FALSE(open->CheckAllActionStatus(Document()));
}

TEST_F(BusProfibusTest, OnlyTheIntegerOneRaisesAStatus) {
  await(&IBusDependent::LaboratoryResultsApply);
  for (const char* item : {"<comm:item name='actionStatusCalibrationError'><comm:stringVal>1</comm:stringVal></comm:item>",
                           "<comm:item name='actionStatusCalibrationError'><comm:integerVal>2</comm:integerVal></comm:item>",
                           "<comm:item name='actionStatusCalibrationError'/>"})
    EXPECT_THAT(calibrate(answer("name='x'", item)), ElementsAre(shown("laboratoryResults", "calibrationWasSuccessfullPleaseUpdateRecipesView")))
        << item;
}

TEST_F(BusProfibusTest, AcceptedRecipesAreTold) {
  await(&IBusDependent::RecipesApply);
  EXPECT_THAT(calibrate(status({"actionStatusOK"})), ElementsAre(shown("recipes", "actionStatusOK")));
  EXPECT_THAT(calibrate(status({"actionStatusOK"})), ElementsAre(shown("recipes", "actionStatusOK")));
}

TEST_F(BusProfibusTest, AfterARefusedPulpTypeTheRecipesAreReadBack) {
  await(&IBusDependent::RecipesApply);
  std::vector<std::string> expected{shown("error", "actionStatusInvalidPulpType")};
  for (int action = 11; action <= 18; ++action) expected.push_back(write(action, "recipes"));
  expected.push_back(kReadPulpTypes);
  EXPECT_EQ(calibrate(status({"actionStatusInvalidPulpType"})), expected) << "and nothing waits";
  EXPECT_THAT(calibrate(status({"actionStatusInvalidPulpType"})), IsEmpty()) << "18 is awaited now";
}

TEST_F(BusProfibusTest, AFailingWriteOfTheReadBackLeavesOutTheRead) {
  await(&IBusDependent::RecipesApply);
  calls.fail("SendRequest", 3);
  host->announce("BusProfibus ExecuteAction: ", 440);
  const std::vector<std::string> lines = calibrate(status({"actionStatusInvalidPulpType"}));
  EXPECT_THAT(lines, testing::Contains(write(18, "recipes"))) << "all eight are tried";
  EXPECT_EQ(lines.back(), write(18, "recipes"));
}

// --- failures

TEST_F(BusProfibusTest, AFailingPollIsReportedInItsOwnName) {
  for (const auto& [operation, name] : {std::pair<Operation, const char*>{&IBusDependent::TemperatureApply, "TemperatureApply"},
                                        {&IBusDependent::RecipesApply, "RecipesApply"},
                                        {&IBusDependent::LaboratoryResultsApply, "LaboratoryResultsApply"},
                                        {&IBusDependent::StartSampling1, "StartSampling1"},
                                        {&IBusDependent::StartSampling2, "StartSampling2"}}) {
    calls.fail("ReadRequest", 1, 70);
    host->announce("BusProfibus AskActionStatus: ", 70);
    EXPECT_FALSE(run(operation)) << name;
  }
  for (Operation stop : {&IBusDependent::StopSampling1, &IBusDependent::StopSampling2}) {
    calls.fail("ReadRequest", 1, 70);
    host->announce("BusProfibus ReadSampleData: ", 70);
    EXPECT_FALSE(run(stop));
  }
}

TEST_F(BusProfibusTest, SetActiveRecipeAloneTellsAFalseOnceMore) {
  calls.fail("ReadRequest", 1, 70, "busy");
  host->announce("BusProfibus AskActionStatus: ", 70);
  host->announce("BusProfibus IBusDependent_SetActiveRecipe: ", 70);
  EXPECT_FALSE(run(&IBusDependent::SetActiveRecipe));
  EXPECT_EQ(host->lastDescription(), "busy");
  EXPECT_THAT(calls.take(), ElementsAre("wait 10/10", askStatus("activeRecipe"), R"(ReportError "BusProfibus AskActionStatus: " 70)",
                                        R"(ReportError "BusProfibus IBusDependent_SetActiveRecipe: " 70)"));
}

TEST_F(BusProfibusTest, AFailingWriteDoesNotKeepTheFollowUpBack) {
  calls.fail("SendRequest");
  host->announce("BusProfibus ExecuteAction: ", 440);
  EXPECT_FALSE(run(&IBusDependent::StartSampling1));
  EXPECT_EQ(calls.take().back(), askStatus("sampling"));
  calls.fail("SendRequest");
  host->announce("BusProfibus ExecuteAction: ", 440);
  EXPECT_FALSE(run(&IBusDependent::StopSampling2));
  EXPECT_EQ(calls.take().back(), kReadSamples);
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), ElementsAre(shown("sampling", "actionStatusOK"))) << "the action is awaited all the same";
  calls.fail("SendRequest");
  host->announce("BusProfibus ExecuteAction: ", 440);
  EXPECT_FALSE(bus->ResetEventLog(host, "resetInfoEventLog"));
}

TEST_F(BusProfibusTest, AFailingMessageEndsTheOperationAndKeepsTheAction) {
  await(&IBusDependent::StopSampling1);
  calls.fail("ShowMessage");
  host->announce("BusProfibus IBusDependent_CalibrationSetOnlineData: ", 440);
  calibrate(status({"sample1Quality"}));
  EXPECT_THAT(calibrate(status({"sample1Quality"})), ElementsAre(shown("error", "sample1DeviationLarge"))) << "still awaited";
  await(&IBusDependent::RecipesApply);
  calls.fail("ShowMessage");
  host->announce("BusProfibus IBusDependent_CalibrationSetOnlineData: ", 440);
  EXPECT_THAT(calibrate(status({"actionStatusInvalidPulpType"})), testing::Not(testing::Contains(testing::StartsWith("SendRequest"))));
  await(&IBusDependent::TemperatureApply);
  calls.fail("ShowMessage");
  host->announce("BusProfibus IBusDependent_AdvancedSetOnlineData: ", 440);
  judge(&IBusDependent::AdvancedSetOnlineData, status({"actionStatusOK"}));
  await(&IBusDependent::SetActiveRecipe);
  calls.fail("ShowMessage");
  host->announce("BusProfibus IBusDependent_MeasurementSetOnlineData: ", 440);
  judge(&IBusDependent::MeasurementSetOnlineData, status({"actionStatusOK"}));
}

TEST_F(BusProfibusTest, ADocumentThatCannotBeReadIsNoStatusDocument) {
  await(&IBusDependent::LaboratoryResultsApply);
  for (Judge operation :
       {&IBusDependent::CalibrationSetOnlineData, &IBusDependent::AdvancedSetOnlineData, &IBusDependent::MeasurementSetOnlineData}) {
    host->announce("BusProfibus CheckIfStatusMessage: ", 91);
    EXPECT_THAT(judge(operation, Document()), ElementsAre(R"(ReportError "BusProfibus CheckIfStatusMessage: " 91)"));
  }
}

TEST_F(BusProfibusTest, WithoutAMessengerReportsAreDropped) {
  EXPECT_FALSE(bus->SetActiveRecipe(nullptr));
  EXPECT_EQ(lastError->error.number, 91);
  EXPECT_FALSE(bus->StartSampling1(nullptr));
  EXPECT_FALSE(bus->ResetEventLog(nullptr, "resetErrorEventLog"));
  EXPECT_TRUE(bus->CalibrationSetOnlineData(status({"actionStatusOK"}), nullptr));
}

// --- what comes in during a wait

TEST_F(BusProfibusTest, AWaitOverMidnightIsNoLonger) {
  desktop.advance(16 * 3600 - 0.5);
  const LocalTime before = desktop.now();
  EXPECT_TRUE(run(&IBusDependent::StopSampling1));
  EXPECT_EQ(desktop.now() - before, std::chrono::seconds(2));
}

TEST_F(BusProfibusTest, AnOperationUnderAVerdictIsForgottenWithIt) {
  await(&IBusDependent::StopSampling1);
  calls.during("ShowMessage", [&] { run(&IBusDependent::LaboratoryResultsApply); });
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), ElementsAre(shown("sampling", "actionStatusOK"), "wait 10/10", askStatus("laboratoryResults")));
  EXPECT_THAT(calibrate(status({"actionStatusCalibrationError"})), IsEmpty());
}

TEST_F(BusProfibusTest, AnAnswerToTheReadBackIsAnOrdinaryDocument) {
  await(&IBusDependent::RecipesApply);
  calibrate(status({"actionStatusInvalidPulpType"}));
  EXPECT_THAT(calibrate(answer("name=\"recipes\"", itemXml("recipe1PulpType", "3", "integerVal"))), IsEmpty());
}

TEST_F(BusProfibusTest, AnErrorOfWhatElseIsPumpedCutsNoWaitShort) {
  int heard = 0;
  desktop.unhandled.connect([&](const ErrorText&) { ++heard; });
  desktop.schedule(0.2, [] { throw RuntimeError(RuntimeError::BadArgument, "a handler fails"); });
  const LocalTime before = desktop.now();
  EXPECT_TRUE(run(&IBusDependent::StartSampling1));
  EXPECT_EQ(desktop.now() - before, std::chrono::seconds(1));
  EXPECT_THAT(calls.take(), ElementsAre(write(3, "sampling"), "wait 10/10", askStatus("sampling")));
  EXPECT_EQ(heard, 1);
}

TEST_F(BusProfibusTest, ASecondOperationTakesOverTheAwaitedAction) {
  desktop.onWait = nullptr;
  desktop.schedule(0.5, [&] { EXPECT_TRUE(run(&IBusDependent::StopSampling1)); });
  EXPECT_TRUE(run(&IBusDependent::StartSampling2));
  EXPECT_THAT(calls.take(), ElementsAre(write(4, "sampling"), write(5, "sampling"), kReadSamples, askStatus("sampling")));
  EXPECT_THAT(calibrate(status({"!sample1Quality"})), ElementsAre(shown("sampling", "actionStatusOK")))
      << "the earlier answer is read under the later action";
}

TEST_F(BusProfibusTest, AnAnswerMayComeDuringAWait) {
  desktop.onWait = nullptr;
  std::vector<std::string> during;
  desktop.schedule(0.9, [&] { during = judge(&IBusDependent::MeasurementSetOnlineData, status({"actionStatusOK"})); });
  EXPECT_TRUE(run(&IBusDependent::SetActiveRecipe));
  EXPECT_THAT(during, ElementsAre(shown("activeRecipe", "actionStatusOK")));
  EXPECT_THAT(calls.take(), ElementsAre(askStatus("activeRecipe")));
}

TEST_F(BusProfibusTest, EndsProperlyOnTheOldObjectWithTheStoredMessenger) {
  desktop.onWait = nullptr;
  const Ref<FakeMessenger> other(new FakeMessenger(calls));
  desktop.schedule(0.5, [&] { bus = nullptr; });
  BusProfibus* const raw = bus.get();
  EXPECT_TRUE(raw->SetActiveRecipe(host));
  EXPECT_FALSE(bus);
  EXPECT_THAT(calls.take(), ElementsAre(askStatus("activeRecipe")));
  EXPECT_EQ(host->count(), 1u);
}

}  // namespace
}  // namespace ostrand
