#include <gmock/gmock.h>

#include <cmath>

#include "simulator/DeviceBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class HartFjellTest : public DeviceBench {
 protected:
  HartFjellTest() : DeviceBench("hartFjell") {}

  std::string laboratory(double value1, double value2, const char* type, int recipe) {
    return write("laboratoryResults", item("laboratoryValue1", fixedText(value1, 2, '.')) + item("laboratoryValue2", fixedText(value2, 2, '.')) +
                                          item("calibrationType", type) + item("laboratoryRecipe", std::to_string(recipe)));
  }
  // Its view asks for two values of a sample.
  std::string take(int sample, double seconds) { return takeSample(sample, seconds, false); }
  void expectReadingOfTheLaboratory() {
    ASSERT_EQ(take(1, 60), "");
    EXPECT_NEAR(number("sample1ConsistencyAverage"), device->laboratoryValue(1).value(), 0.012);
  }
  // Lets the clock go to so many seconds after the device was switched on.
  void advanceTo(double seconds) { desktop->advance(seconds - std::chrono::duration<double>(desktop->now() - VirtualDesktop().now()).count()); }
};

TEST_F(HartFjellTest, MeasuresALowConsistency) {
  desktop->advance(20);
  EXPECT_NEAR(number("consistency"), 1.45, 0.35);
  EXPECT_NEAR(number("outputCurrent"), 4 + 16 * number("consistency") / 3, 0.3);
  EXPECT_EQ(value("consistency").substr(0, 2), "1.");
  EXPECT_EQ(errorOf(ask(readOf({"recipe5PulpType", "recipe1Filler", "bladeType", "executeAction", "actionStatus"}))), "missingItems");
}

// These are the bytes on every machine.
TEST_F(HartFjellTest, KnownValues) {
  EXPECT_EQ(value("consistency"), "1.31592");
  EXPECT_EQ(value("shearForce"), "28.2253");
}

TEST_F(HartFjellTest, TheSameSeedAndClockGiveTheSameBytes) {
  const auto conversation = [&](unsigned seed) {
    restart(seed);
    std::string all;
    take(1, 30);
    for (const Answer& answer : answers) all += answer.document.xml();
    for (const char* group : {"monitoringVariables", "sampling", "recipes", "flushing", "deviceStatus", "eventLog"})
      for (const Answer& answer : ask(requestText(group, "read", ""))) all += answer.document.xml();
    return all;
  };
  const std::string first = conversation(7);
  EXPECT_EQ(conversation(7), first);
  EXPECT_NE(conversation(8), first);
}

// --- Samples and calibration ---

TEST_F(HartFjellTest, ASampleOfTwoValues) {
  ASSERT_EQ(write("sampling", item("sampleStart", "1")), "");
  desktop->advance(40);
  ask(requestText("sampling", "read", ""));
  EXPECT_EQ(value("statusSamplingActive"), "1");
  ASSERT_EQ(stopSample(2, false), "");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_THAT(names(answers.back().document), ElementsAre("statusSamplingActive"));
  EXPECT_NEAR(number("sample2ConsistencyAverage"), 1.45, 0.35);
  EXPECT_LT(number("sample2Deviation"), 0.05 * number("sample2ConsistencyAverage"));
  EXPECT_EQ(value("sample1ConsistencyAverage"), "0");
}

TEST_F(HartFjellTest, ASampleOutlivesADeviceThatGoesSilent) {
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  device->setFault("silent", "");
  desktop->advance(30);
  EXPECT_EQ(stopSample(1, false), "no answer");
  device->setFault("none", "");
  EXPECT_EQ(value("statusSamplingActive"), "1");
  EXPECT_EQ(stopSample(1, false), "");
  EXPECT_TRUE(device->laboratoryValue(1));
}

TEST_F(HartFjellTest, ACalibrationByTwoSamplesBringsTheReadingToTheLaboratory) {
  ASSERT_EQ(take(1, 60), "");
  desktop->advance(240);
  ASSERT_EQ(take(2, 60), "");
  const double first = device->laboratoryValue(1).value();
  EXPECT_GT(std::abs(number("sample1ConsistencyAverage") - first), 0.03);
  EXPECT_EQ(laboratory(first, device->laboratoryValue(2).value(), "3", 1), "");
  EXPECT_NE(value("recipe1LinearizationSlopeP1"), "1");
  for (int i = 0; i < 3; ++i) {
    expectReadingOfTheLaboratory();
    desktop->advance(240);
  }
}

TEST_F(HartFjellTest, ACalibrationByOneSampleMovesTheOffset) {
  ASSERT_EQ(take(2, 60), "");
  EXPECT_EQ(laboratory(0, device->laboratoryValue(2).value(), "2", 1), "");
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  expectReadingOfTheLaboratory();
}

TEST_F(HartFjellTest, RefusesASuspiciousCalibration) {
  const char* const key = "hartCmdErrSuspiciousCalibration";
  EXPECT_EQ(laboratory(1.4, 0, "1", 1), key);  // no sample
  take(1, 20);
  take(2, 20);
  EXPECT_EQ(laboratory(1.4, 1.5, "3", 1), key);  // both at the same setpoint
  EXPECT_EQ(laboratory(5, 0, "1", 1), key);
  EXPECT_EQ(laboratory(7, 0, "1", 1), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(laboratory(1.4, 0, "1", 5), "hartCmdErrInvalidSelection");  // there are four recipes
  EXPECT_EQ(value("recipe1LinearizationOffsetP2"), "0");
}

TEST_F(HartFjellTest, FourRecipesForEveryPulp) {
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "5")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "4")), "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed");  // no points yet
  EXPECT_EQ(write("specialGrade", item("consistencyOffset05", "0.3")), "");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "4")), "");
  for (int pulp = 1; pulp <= 10; ++pulp) EXPECT_EQ(write("recipes", item("recipe2PulpType", std::to_string(pulp))), "") << pulp;
}

TEST_F(HartFjellTest, TitaniumDioxideLeavesNoForce) {
  desktop->advance(10);
  const double before = number("consistency");
  ASSERT_EQ(write("tioCompensation", item("titaniumDioxideCompensation", "1")), "");
  EXPECT_NEAR(number("consistency"), before / 0.97, 0.02);
}

// --- Flushing ---

TEST_F(HartFjellTest, TheMeasurementStandsStillWhileTheBladeIsFlushed) {
  ASSERT_EQ(write("outputSignal", item("damping", "0")), "");
  ASSERT_EQ(write("flushing", item("flushingMode", "1") + item("flushingInterval", "2") + item("flushingTime", "40")), "");  // at 0.7 s
  advanceTo(115);
  EXPECT_EQ(value("statusFlushingActive"), "0");
  advanceTo(122);
  const std::string held = value("consistency");
  EXPECT_EQ(value("statusFlushingActive"), "1");
  advanceTo(155);
  EXPECT_EQ(value("consistency"), held);
  EXPECT_EQ(value("statusFlushingActive"), "1");
  advanceTo(165);
  EXPECT_EQ(value("statusFlushingActive"), "0");
  EXPECT_NE(value("consistency"), held);
  advanceTo(160.7 + 122);
  EXPECT_EQ(value("statusFlushingActive"), "1");
  ASSERT_EQ(write("flushing", item("flushingMode", "0")), "");
  EXPECT_EQ(value("statusFlushingActive"), "0");
}

TEST_F(HartFjellTest, ASampleLeavesTheFlushingOut) {
  ASSERT_EQ(write("flushing", item("flushingInterval", "1") + item("flushingTime", "300")), "");
  advanceTo(70);
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  desktop->advance(60);
  ASSERT_EQ(stopSample(1, false), "");
  EXPECT_EQ(value("sample1ConsistencyAverage"), "NaN");  // nothing but water
  EXPECT_FALSE(device->laboratoryValue(1));
  ASSERT_EQ(write("sampling", item("sampleStart", "0")), "");
  desktop->advance(280);
  ASSERT_EQ(stopSample(1, false), "");
  EXPECT_NEAR(number("sample1ConsistencyAverage"), 1.45, 0.35);
}

TEST_F(HartFjellTest, FlushingHasLimits) {
  EXPECT_EQ(write("flushing", item("flushingTime", "10")), "hartCmdErrParameterTooSmall");
  EXPECT_EQ(write("flushing", item("flushingTime", "310")), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(write("flushing", item("flushingInterval", "0")), "hartCmdErrParameterTooSmall");
  EXPECT_EQ(write("flushing", item("flushingMode", "2")), "hartCmdErrInvalidSelection");
}

// --- Output ---

TEST_F(HartFjellTest, AFailureDrivesTheAlarmCurrent) {
  device->setFault("failure", "electronics");
  EXPECT_EQ(value("outputCurrent"), "22");
  EXPECT_EQ(value("statusFailSafeActive"), "1");
  ASSERT_EQ(write("outputSignal", item("failSafeAlarmCurrent", "0")), "");
  EXPECT_EQ(value("outputCurrent"), "3.6");
  device->setFault("failure", "sensor");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(value("outputCurrent"), "3.6");
}

TEST_F(HartFjellTest, TheSpanHasAMinimum) {
  EXPECT_EQ(write("rangeValues", item("lowerRangeValue", "2.6")), "hartCmdErrSpanTooSmall");
  EXPECT_EQ(write("rangeValues", item("lowerRangeValue", "2.5")), "");
}

}  // namespace
}  // namespace ostrand::test
