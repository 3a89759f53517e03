#include <gmock/gmock.h>

#include <cmath>

#include "simulator/DeviceBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class HartBladeTest : public DeviceBench {
 protected:
  std::string laboratory(double value1, double value2, const char* type, int recipe, const char* filler = "0") {
    return write("laboratoryResults", item("sampleFiller", filler) + item("laboratoryValue1", fixedText(value1, 2, '.')) +
                                          item("laboratoryValue2", fixedText(value2, 2, '.')) + item("calibrationType", type) +
                                          item("laboratoryRecipe", std::to_string(recipe)));
  }
  // Both samples, the mill's setpoint moves between them.
  void takeBothSamples() {
    ASSERT_EQ(takeSample(1, 60), "");
    desktop->advance(240);
    ASSERT_EQ(takeSample(2, 60), "");
  }
  void expectReadingOfTheLaboratory() {
    takeSample(1, 60);
    EXPECT_NEAR(number("sample1ConsistencyAverage"), device->laboratoryValue(1).value(), 0.02);
  }
};

// --- Reading ---

TEST_F(HartBladeTest, AnswersAReadWithUnitsAndTypes) {
  const auto all = ask(readOf({"tag", "activeRecipe", "recipe2LinearizationSlopeP1"}, "some"));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].document.xml(),
            "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"some\" access=\"read\" isFinal=\"1\" "
            "responseStatus=\"device\"><comm:item name=\"tag\" unit=\"noUnit\"><comm:stringVal>QC-1201</comm:stringVal></comm:item>"
            "<comm:item name=\"activeRecipe\" unit=\"noUnit\"><comm:integerVal>1</comm:integerVal></comm:item>"
            "<comm:item name=\"recipe2LinearizationSlopeP1\" unit=\"noUnit\"><comm:floatVal>1.024</comm:floatVal></comm:item>"
            "</comm:communicationResponse></comm:dtm>");
}

TEST_F(HartBladeTest, AnswersLongReadsInSteps) {
  const LocalTime start = desktop->now();
  const auto all = ask(readOf({"consistency", "consistencyUnfiltered", "shearForce", "processTemperature", "electronicsTemperature", "outputCurrent",
                               "outputPercent", "activeRecipe", "tag"}));
  ASSERT_EQ(all.size(), 3u);
  EXPECT_THAT(names(all[0].document), ElementsAre("consistency", "consistencyUnfiltered", "shearForce", "processTemperature"));
  EXPECT_THAT(names(all[2].document), ElementsAre("tag"));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(response(all[i].document).attribute("isFinal"), i == 2 ? "1" : "0");
    EXPECT_EQ((all[i].time - start).count(), 350 * static_cast<int>(i + 1));
  }
}

TEST_F(HartBladeTest, ReadsAGroupByItsName) {
  const auto all = ask(requestText("identification", "read", ""));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_THAT(names(all[0].document), ElementsAre("tag", "description", "message", "deviceDate"));
  // What can only be written is not asked for.
  EXPECT_THAT(names(ask(requestText("loopTest", "read", ""))[0].document), ElementsAre("outputCurrent"));
}

TEST_F(HartBladeTest, AnswersInTheOrderOfTheRequests) {
  send(readOf({"tag"}, "first"));
  send(readOf({"message"}, "second"));
  EXPECT_EQ(device->underWay(), 2);
  EXPECT_TRUE(answers.empty());
  desktop->advance(0.35);
  ASSERT_EQ(answers.size(), 1u);
  EXPECT_EQ(device->underWay(), 1);
  desktop->advance(0.35);
  ASSERT_EQ(answers.size(), 2u);
  EXPECT_EQ(response(answers[1].document).attribute("name"), "second");
}

TEST_F(HartBladeTest, TheMeasurementHangsTogether) {
  desktop->advance(20);
  const double consistency = number("consistency");
  EXPECT_NEAR(consistency, 3.5, 0.6);
  EXPECT_NEAR(number("outputPercent"), consistency / 8 * 100, 1.0);
  EXPECT_NEAR(number("outputCurrent"), 4 + 16 * consistency / 8, 0.2);
  EXPECT_NEAR(number("shearForce"), 6.8 * (consistency + 0.02 * consistency * consistency), 2.0);
  EXPECT_NEAR(number("processTemperature"), 52, 3);
}

TEST_F(HartBladeTest, DampingSmoothsTheReading) {
  const auto roughness = [&](const char* name) {
    double sum = 0;
    double last = number(name);
    for (int i = 0; i < 40; ++i) {
      desktop->advance(1);
      const double next = number(name);
      sum += std::abs(next - last);
      last = next;
    }
    return sum;
  };
  ASSERT_EQ(write("outputSignal", item("damping", "20")), "");
  EXPECT_LT(roughness("consistency") * 3, roughness("consistencyUnfiltered"));
}

// --- The clock and the seed alone decide ---

TEST_F(HartBladeTest, TheSameSeedAndClockGiveTheSameBytes) {
  const auto conversation = [&](unsigned seed) {
    restart(seed);
    std::string all;
    takeSample(1, 30);
    for (const Answer& answer : answers) all += answer.document.xml();
    for (const char* group : {"monitoringVariables", "sampling", "recipes", "deviceStatus", "eventLog"})
      for (const Answer& answer : ask(requestText(group, "read", ""))) all += answer.document.xml();
    return all;
  };
  const std::string first = conversation(7);
  EXPECT_EQ(conversation(7), first);
  EXPECT_NE(conversation(8), first);
}

TEST_F(HartBladeTest, LookingOftenMakesNoDifference) {
  desktop->advance(100 - 0.35);
  const std::string seldom = value("consistency");
  restart(1);
  for (int i = 0; i < 100; ++i) number("consistency");
  desktop->advance(100 - 0.35 - std::chrono::duration<double>(desktop->now() - VirtualDesktop().now()).count());
  EXPECT_EQ(value("consistency"), seldom);
}

TEST_F(HartBladeTest, ALongPauseCostsNothingAndBreaksNothing) {
  desktop->advance(365.0 * 24 * 3600);
  EXPECT_NEAR(number("consistency"), 3.5, 0.6);
}

// These are the bytes on every machine.
TEST_F(HartBladeTest, KnownValues) {
  EXPECT_EQ(value("consistency"), "3.31833");
  EXPECT_EQ(value("shearForce"), "23.9262");
  EXPECT_EQ(value("processTemperature"), "53.0606");
}

// --- Writing ---

TEST_F(HartBladeTest, AWriteIsEchoedAndHeld) {
  const char* const tag = "<item name=\"tag\" unit=\"noUnit\"><stringVal>LINE 7</stringVal></item>";
  const auto all = ask(writeOf("identification", tag + item("damping", " 3.50 ")));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='tag']/comm:stringVal"), "LINE 7");
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='damping']/comm:floatVal"), "3.5");
  EXPECT_EQ(response(all[0].document).attribute("access"), "write");
  EXPECT_EQ(value("tag"), "LINE 7");
  EXPECT_EQ(value("damping"), "3.5");
}

TEST_F(HartBladeTest, ALongWriteComesInStepsAndCountsAsAWhole) {
  std::string items;
  for (int i = 0; i < 8; ++i) items += item("consistencyOffset0" + std::to_string(i), "0.1");
  const auto all = ask(writeOf("specialGrade", items));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(response(all[0].document).attribute("isFinal"), "0");
  EXPECT_EQ(names(all[1].document).size(), 4u);
  EXPECT_EQ(value("consistencyOffset00"), "0.1");

  // The first step is good, the second is not: nothing is written.
  items.clear();
  for (int i = 0; i < 5; ++i) items += item("consistencyOffset0" + std::to_string(i), i == 4 ? "77" : "0.2");
  const auto refused = ask(writeOf("specialGrade", items));
  EXPECT_EQ(errorOf(refused), "hartCmdErrParameterTooLarge");
  EXPECT_THAT(names(refused.back().document), ElementsAre("consistencyOffset04"));
  EXPECT_EQ(value("consistencyOffset00"), "0.1");
}

TEST_F(HartBladeTest, RefusesWhatItCannotHold) {
  EXPECT_EQ(write("x", item("upperRangeValue", "17")), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(write("x", item("damping", "-1")), "hartCmdErrParameterTooSmall");
  EXPECT_EQ(write("x", item("damping", "2,5")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("damping", "")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("damping", "NaN")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("hartAddress", "1.5")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("activeRecipe", "9")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("consistency", "3")), "hartCmdErrAccessRestricted");
  EXPECT_EQ(write("x", item("tag", "small")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("tag", "NINECHARS")), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(write("x", item("deviceDate", "2026-02-30")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("x", item("deviceDate", "2026-02-28")), "");
  EXPECT_EQ(write("rangeValues", item("lowerRangeValue", "7.5")), "hartCmdErrSpanTooSmall");
  EXPECT_EQ(write("specialGrade", item("consistencyValue03", "2.00")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(value("upperRangeValue"), "8");
  EXPECT_EQ(value("activeRecipe"), "1");
}

TEST_F(HartBladeTest, EveryErrorHasItsText) {
  for (const char* language : {"en", "fi", "sv", "de"}) {
    const Document texts = Document::readFile(OSTRAND_SOURCE_DIR "/data/texts/" + std::string(language) + ".xml");
    for (const char* key : {"communicationError", "missingItems", "hartCmdErrCommandIsNotImplemented", "hartCmdErrAccessRestricted",
                            "hartCmdErrParameterTooSmall", "hartCmdErrParameterTooLarge", "hartCmdErrInWriteProtectMode", "hartCmdErrSpanTooSmall",
                            "hartCmdErrInvalidSelection", "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed", "hartCmdErrSuspiciousCalibration"})
      EXPECT_TRUE(texts.select("/texts/text[@key='" + std::string(key) + "']")) << language << " " << key;
  }
}

TEST_F(HartBladeTest, TheActiveRecipeChangesTheReading) {
  desktop->advance(10);
  const double before = number("consistency");
  const auto all = ask(writeOf("activeRecipe", "<item name=\"activeRecipe\" unit=\"noUnit\"><integerVal>4</integerVal></item>"));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='activeRecipe']/comm:integerVal"), "4");
  const double after = number("consistency");
  EXPECT_GT(after, before + 0.3);  // hardwood leaves less force, so more of it must be there
}

TEST_F(HartBladeTest, RefusesARecipeThatCannotMeasure) {
  const char* const key = "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed";
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "8")), key);  // a special grade without points
  EXPECT_EQ(write("recipes", item("recipe2PulpType", "5")), key);    // groundwood is not for this blade
  EXPECT_EQ(value("recipe2PulpType"), "2");
  EXPECT_EQ(value("activeRecipe"), "1");
  // With the long blade groundwood is allowed; with the short one again, the recipe is not.
  EXPECT_EQ(write("assemblyRelated", item("bladeType", "2")), "");
  EXPECT_EQ(write("recipes", item("recipe2PulpType", "5")), "");
  EXPECT_EQ(write("assemblyRelated", item("bladeType", "1")), "");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "2")), key);
  // Points make the special grade known.
  EXPECT_EQ(write("specialGrade", item("consistencyOffset05", "0.3")), "");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "8")), "");
}

TEST_F(HartBladeTest, TheSpecialGradeFollowsItsPoints) {
  ASSERT_EQ(write("specialGrade", item("consistencyOffset00", "1") + item("consistencyOffset15", "1")), "");
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "8")), "");
  const double between = number("consistency");
  std::string all;
  for (int i = 0; i < 16; ++i) all += item("consistencyOffset" + std::string(i < 10 ? "0" : "") + std::to_string(i), "1");
  ASSERT_EQ(write("specialGrade", all), "");
  EXPECT_NEAR(number("consistency"), between + 1, 0.15);
}

// --- Samples and calibration ---

TEST_F(HartBladeTest, ASampleHasNoValuesBeforeItIsTaken) {
  EXPECT_EQ(value("sample1ConsistencyAverage"), "0");
  EXPECT_EQ(value("sample1Deviation"), "0");
  EXPECT_EQ(device->laboratoryValue(1), std::nullopt);
  EXPECT_EQ(device->laboratoryValue(0), std::nullopt);
  EXPECT_EQ(device->laboratoryValue(3), std::nullopt);
}

TEST_F(HartBladeTest, ASampleAveragesUntilItIsRead) {
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  EXPECT_EQ(value("statusSamplingActive"), "1");
  stopSample(2);  // the other one's read ends nothing
  EXPECT_EQ(value("sample2ConsistencyAverage"), "0");
  EXPECT_EQ(value("statusSamplingActive"), "1");
  desktop->advance(60);
  EXPECT_EQ(stopSample(1), "");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  const double average = number("sample1ConsistencyAverage");
  const double deviation = number("sample1Deviation");
  EXPECT_NEAR(average, number("consistency"), 0.15);
  EXPECT_GT(deviation, 0.01);
  EXPECT_LT(deviation, 0.05 * average);
  EXPECT_NEAR(number("sample1ShearForceAverage"), 6.8 * (average + 0.02 * average * average), 0.05);
  // It stands until the next one starts.
  desktop->advance(600);
  stopSample(1);
  EXPECT_EQ(number("sample1ConsistencyAverage"), average);
  ASSERT_EQ(write("sampling", item("sampleStart", "1")), "");
  EXPECT_EQ(number("sample1ConsistencyAverage"), average);
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");  // ends sample 2
  EXPECT_EQ(value("statusSamplingActive"), "1");
  EXPECT_NEAR(number("sample2ConsistencyAverage"), 3.5, 0.6);
}

TEST_F(HartBladeTest, WhoOnlyLooksEndsNoSample) {
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  desktop->advance(30);
  ask(requestText("sampling", "read", ""));
  const double soFar = number("sample1ConsistencyAverage");
  EXPECT_NEAR(soFar, 3.4, 0.6);
  ask(readOf({"sample1Deviation", "sample1ConsistencyAverage", "consistency"}, "sampling"));
  ask(readOf({"sample1Deviation", "sample1ShearForceAverage"}, "sampling"));
  EXPECT_EQ(value("statusSamplingActive"), "1");
  EXPECT_FALSE(device->laboratoryValue(1));
  desktop->advance(30);
  EXPECT_NE(number("sample1ConsistencyAverage"), soFar);
  // Two values are enough, three may be asked for.
  stopSample(1, false);
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_TRUE(device->laboratoryValue(1));
}

TEST_F(HartBladeTest, ASampleOutlivesADeviceThatGoesSilent) {
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  device->setFault("silent", "sampling");
  desktop->advance(30);
  EXPECT_EQ(stopSample(1), "no answer");
  EXPECT_EQ(value("statusSamplingActive"), "1");
  device->setFault("none", "");
  EXPECT_EQ(stopSample(1), "");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_TRUE(device->laboratoryValue(1));
}

TEST_F(HartBladeTest, AnUnsteadyPulpGivesALargeDeviation) {
  device->setFault("unsteady", "20");
  takeSample(1, 60);
  EXPECT_GT(number("sample1Deviation"), 0.05 * number("sample1ConsistencyAverage"));
  EXPECT_EQ(value("eventLogWarningEvent03"), "eventSampleDeviationLarge");
  EXPECT_EQ(value("eventLogWarningCount03"), "2");
}

TEST_F(HartBladeTest, ACalibrationByTwoSamplesBringsTheReadingToTheLaboratory) {
  takeBothSamples();
  const double first = device->laboratoryValue(1).value();
  const double second = device->laboratoryValue(2).value();
  EXPECT_GT(std::abs(second - first), 0.2);
  EXPECT_GT(std::abs(number("sample1ConsistencyAverage") - first), 0.05);
  EXPECT_EQ(laboratory(first, second, "3", 1), "");
  EXPECT_NE(value("recipe1LinearizationSlopeP1"), "1");
  // At the mill's next setpoint too.
  for (int i = 0; i < 3; ++i) {
    expectReadingOfTheLaboratory();
    desktop->advance(240);
  }
  EXPECT_EQ(value("eventLogInfoEvent04"), "eventRecipeCalibrated");
  EXPECT_EQ(value("eventLogInfoCount04"), "3");
}

TEST_F(HartBladeTest, ACalibrationByOneSampleMovesTheOffset) {
  takeSample(2, 60);
  const double found = device->laboratoryValue(2).value();
  EXPECT_EQ(laboratory(0, found, "2", 1), "");
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  expectReadingOfTheLaboratory();
}

TEST_F(HartBladeTest, ACalibrationOfAnotherRecipeLeavesTheActiveOne) {
  takeBothSamples();
  EXPECT_EQ(laboratory(*device->laboratoryValue(1), *device->laboratoryValue(2), "3", 3, "4"), "");
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  EXPECT_EQ(value("recipe3Filler"), "4");
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "3")), "");
  expectReadingOfTheLaboratory();
}

TEST_F(HartBladeTest, RefusesASuspiciousCalibration) {
  const char* const key = "hartCmdErrSuspiciousCalibration";
  EXPECT_EQ(laboratory(3.4, 0, "1", 1), key);  // no sample
  takeSample(1, 20);
  EXPECT_EQ(laboratory(3.4, 3.6, "3", 1), key);  // not the second one
  takeSample(2, 20);
  EXPECT_EQ(laboratory(3.4, 3.6, "3", 1), key);  // both at the same setpoint
  EXPECT_EQ(laboratory(9, 0, "1", 1), key);      // far from what was measured
  EXPECT_EQ(laboratory(0, 0, "1", 1), key);
  desktop->advance(200);
  takeSample(2, 60);
  const auto falling =
      ask(writeOf("laboratoryResults", item("sampleFiller", "2") + item("laboratoryValue1", "3.6") + item("laboratoryValue2", "1.2") +
                                           item("calibrationType", "3") + item("laboratoryRecipe", "1")));
  EXPECT_EQ(errorOf(falling), key);
  EXPECT_EQ(falling.size(), 1u) << "nothing of it is echoed before";
  EXPECT_THAT(names(falling.back().document), ElementsAre("laboratoryValue1", "laboratoryValue2"));
  // Nothing has changed.
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  EXPECT_EQ(value("recipe1LinearizationOffsetP2"), "0");
  EXPECT_EQ(value("recipe1Filler"), "0");
  EXPECT_EQ(value("laboratoryValue1"), "3.35");
  EXPECT_EQ(value("eventLogWarningEvent04"), "eventCalibrationSuspicious");
  EXPECT_EQ(value("eventLogWarningCount04"), "6");
}

TEST_F(HartBladeTest, RefusesToCalibrateAPulpThatTheBladeDoesNotAllow) {
  ASSERT_EQ(write("assemblyRelated", item("bladeType", "7")), "");  // not for chemical pulps
  takeSample(1, 20);
  const auto all = ask(writeOf("laboratoryResults", item("laboratoryValue1", "3.4") + item("calibrationType", "1") + item("laboratoryRecipe", "1")));
  EXPECT_EQ(errorOf(all), "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed");
  EXPECT_THAT(names(all.back().document), ElementsAre("laboratoryRecipe"));
}

TEST_F(HartBladeTest, ATemperatureCalibrationMovesTheTemperature) {
  const double before = number("processTemperature");
  EXPECT_EQ(write("temperatureCalibration", item("temperatureCalibrationMeasurement", "1") + item("temperatureCalibrationCorrection", "5")), "");
  EXPECT_NEAR(number("processTemperature"), before + 5, 0.5);
  EXPECT_EQ(write("temperatureCalibration", item("temperatureCalibrationMeasurement", "1") + item("temperatureCalibrationCorrection", "-15")),
            "hartCmdErrSuspiciousCalibration");
  EXPECT_NEAR(number("processTemperature"), before + 5, 0.5);
}

// --- Output, status, events ---

TEST_F(HartBladeTest, ALoopTestDrivesTheOutput) {
  const auto all = ask(writeOf("loopTest", item("loopTestValue", "12.5")));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='loopTestValue']/comm:floatVal"), "12.5");
  EXPECT_EQ(value("outputCurrent"), "12.5");
  EXPECT_EQ(value("statusLoopTestActive"), "1");
  EXPECT_EQ(value("statusHARTFixedCurrentActive"), "1");
  EXPECT_EQ(value("statusHARTMoreStatusAvailable"), "1");
  EXPECT_EQ(write("loopTest", item("loopTestValue", "1")), "hartCmdErrParameterTooSmall");
  EXPECT_EQ(ask(writeOf("loopTest", item("loopTestValue", "0")))[0].document.selectText("//comm:floatVal"), "0");
  EXPECT_NE(value("outputCurrent"), "12.5");
  EXPECT_EQ(value("statusLoopTestActive"), "0");
  EXPECT_EQ(value("eventLogInfoEvent05"), "eventLoopTestRun");
  EXPECT_EQ(value("eventLogInfoCount05"), "1");
}

TEST_F(HartBladeTest, AFixedCurrentAndAnAddressHoldTheOutput) {
  ASSERT_EQ(write("mACalibration", item("mACalibrationFixedCurrent", "20")), "");
  EXPECT_EQ(value("outputCurrent"), "20");
  ASSERT_EQ(write("mACalibration", item("mACalibrationFixedCurrent", "0")), "");
  ASSERT_EQ(write("hartAddress", item("hartAddress", "3")), "");
  EXPECT_EQ(value("outputCurrent"), "4");
  EXPECT_EQ(value("statusHARTFixedCurrentActive"), "1");
}

TEST_F(HartBladeTest, StatusFollowsTheProcess) {
  EXPECT_EQ(value("statusHARTLoopCurrentOutOfLimits"), "0");
  ASSERT_EQ(write("rangeValues", item("lowerRangeValue", "0") + item("upperRangeValue", "2")), "");
  EXPECT_EQ(value("outputCurrent"), "22");
  EXPECT_EQ(value("statusHARTLoopCurrentOutOfLimits"), "1");
  EXPECT_EQ(value("eventLogWarningEvent02"), "eventConsistencyAboveRange");
  EXPECT_EQ(value("eventLogWarningCount02"), "4");  // once, however often it is looked at
  EXPECT_EQ(value("statusHARTPVOutOfLimits"), "0");
  ASSERT_EQ(write("recipes", item("recipe1LinearizationSlopeP1", "10")), "");
  EXPECT_EQ(value("statusHARTPVOutOfLimits"), "1");
}

TEST_F(HartBladeTest, BitsOfTheBusLastUntilTheyAreRead) {
  EXPECT_EQ(value("statusHARTColdStart"), "1");
  EXPECT_EQ(value("statusHARTColdStart"), "0");
  EXPECT_EQ(value("statusHARTConfigurationChanged"), "0");
  write("x", item("damping", "3"));
  EXPECT_EQ(value("statusHARTConfigurationChanged"), "1");
  EXPECT_EQ(value("statusHARTConfigurationChanged"), "0");
  write("x", item("activeRecipe", "2"));
  EXPECT_EQ(value("statusHARTConfigurationChanged"), "0");
}

TEST_F(HartBladeTest, AFailedSensorLeavesNoMeasurement) {
  const double before = number("consistency");
  device->setFault("failure", "sensor");
  EXPECT_NEAR(number("consistency"), before, 0.2);  // the last valid value, as configured
  EXPECT_EQ(value("consistencyUnfiltered"), "NaN");
  EXPECT_EQ(value("shearForce"), "NaN");
  EXPECT_EQ(value("statusSensorFailure"), "1");
  EXPECT_EQ(value("statusHARTDeviceFailure"), "1");
  EXPECT_EQ(value("statusFailSafeActive"), "1");
  EXPECT_EQ(value("eventLogErrorCount02"), "2");
  takeSample(1, 5);
  EXPECT_EQ(value("sample1ConsistencyAverage"), "NaN");

  ASSERT_EQ(write("failSafeAction", item("failSafeType", "0") + item("failSafeDefaultValue", "2")), "");
  EXPECT_EQ(value("consistency"), "2");
  EXPECT_EQ(value("outputCurrent"), "8");
  ASSERT_EQ(write("failSafeAction", item("failSafeType", "2")), "");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(value("outputCurrent"), "22");
  ASSERT_EQ(write("outputSignal", item("failSafeAlarmCurrent", "0")), "");
  EXPECT_EQ(value("outputCurrent"), "3.6");
  ASSERT_EQ(write("outputSignal", item("failSafeAlarmCurrent", "2")), "");
  EXPECT_NEAR(number("outputCurrent"), 4 + 2 * before, 0.5);
  ASSERT_EQ(write("failSafeAction", item("failSafeType", "3")), "");
  EXPECT_EQ(value("statusFailSafeActive"), "0");
  device->setFault("none", "");
  EXPECT_NEAR(number("consistency"), before, 0.3);
  EXPECT_EQ(value("statusSensorFailure"), "0");
}

TEST_F(HartBladeTest, WriteProtectionRefusesWrites) {
  device->setFault("writeProtected", "");
  EXPECT_EQ(write("x", item("damping", "3")), "hartCmdErrInWriteProtectMode");
  EXPECT_EQ(value("statusWriteProtectionActive"), "1");
  device->setFault("none", "");
  EXPECT_EQ(write("x", item("damping", "3")), "");
}

TEST_F(HartBladeTest, EventsComeFromWhatHappens) {
  const auto count = [&](const std::string& list, const std::string& event) {
    for (const char row : std::string("12345678"))
      if (value(("eventLog" + list + "Event0" + row).c_str()) == event) return number(("eventLog" + list + "Count0" + row).c_str());
    return 0.0;
  };
  const double failures = count("Error", "eventSensorFailure");
  device->setFault("failure", "sensor");
  device->setFault("none", "");  // nobody has looked meanwhile
  EXPECT_EQ(count("Error", "eventSensorFailure"), failures + 1);

  const double heats = count("Warning", "eventProcessTemperatureHigh");
  device->setFault("heat", "110");
  EXPECT_EQ(value("statusProcessTemperatureOutOfLimits"), "1");
  EXPECT_EQ(value("statusElectronicsTemperatureOutOfLimits"), "0");
  EXPECT_EQ(count("Warning", "eventProcessTemperatureHigh"), heats + 1);

  const double runs = count("Info", "eventLoopTestRun");
  for (const char* current : {"12", "14", "0"}) ASSERT_EQ(write("loopTest", item("loopTestValue", current)), "");
  EXPECT_EQ(count("Info", "eventLoopTestRun"), runs + 1);

  const double starts = count("Info", "eventPowerUp");
  device->setFault("powerCycle", "");
  EXPECT_EQ(count("Info", "eventPowerUp"), starts + 1);
  EXPECT_EQ(count("Warning", "eventProcessTemperatureHigh"), heats + 2) << "what is there when the power comes back is seen anew";
}

TEST_F(HartBladeTest, WithoutPowerSamplesAreLost) {
  takeSample(1, 10);
  ASSERT_EQ(write("sampling", item("sampleStart", "1")), "");
  ASSERT_EQ(write("loopTest", item("loopTestValue", "12")), "");
  ASSERT_EQ(write("outputSignal", item("damping", "7")), "");
  device->setFault("powerCycle", "");
  EXPECT_FALSE(device->laboratoryValue(1));
  EXPECT_EQ(value("sample1ConsistencyAverage"), "0");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_EQ(value("statusLoopTestActive"), "0");
  EXPECT_NE(value("outputCurrent"), "12");
  EXPECT_EQ(value("statusHARTColdStart"), "1");
  EXPECT_EQ(value("damping"), "7");
}

TEST_F(HartBladeTest, AWornBladeReadsTooLittle) {
  const double before = number("consistency");
  device->setFault("drift", "20");
  EXPECT_NEAR(number("consistency"), 0.8 * before, 0.15);
  device->setFault("none", "");
  EXPECT_NEAR(number("consistency"), before, 0.1);
}

TEST_F(HartBladeTest, EachKindOfEventHasARowOfItsOwn) {
  // Six parts that can fail, two of them known already.
  for (const char* part : {"sensor", "temperatureSensor", "electronics", "memory", "currentOutput", "supplyVoltage"})
    device->setFault("failure", part);
  EXPECT_EQ(value("eventLogErrorEvent06"), "eventCurrentOutputFailure");
  EXPECT_EQ(value("eventLogErrorEvent07"), "");
  EXPECT_EQ(value("eventLogErrorCount01"), "3");
}

}  // namespace
}  // namespace ostrand::test
