#include <gmock/gmock.h>

#include <cmath>

#include "simulator/GyreBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class HartGYRETest : public GyreBench {
 protected:
  // Writes, and gives by how much the reading differs from before; the pulp goes on meanwhile.
  double changeBy(const std::string& items) {
    const double before = number("consistencyUnfiltered");
    EXPECT_EQ(write("recipe1", items), "");
    return number("consistencyUnfiltered") - before;
  }
};

// --- Measurement ---

TEST_F(HartGYRETest, TheMeasurementHangsTogether) {
  desktop->advance(20);
  const double consistency = number("consistency");
  EXPECT_NEAR(consistency, 5.9, 1.6);
  EXPECT_NEAR(number("outputPercent"), consistency * 10, 2.0);
  EXPECT_NEAR(number("outputCurrent"), 4 + 16 * consistency / 10, 0.3);
  EXPECT_NEAR(number("processTemperature"), 54, 3);
  const double torque = number("torque");
  EXPECT_NEAR(number("consistencyUnfiltered"), 0.2512 + 12.2238 * torque - 6.3049 * torque * torque + 1.9456 * torque * torque * torque, 0.3);
}

// These are the bytes on every machine.
TEST_F(HartGYRETest, KnownValues) {
  EXPECT_EQ(value("consistency"), "4.42509");
  EXPECT_EQ(value("torque"), "0.41713");
  EXPECT_EQ(told(1, 20, "historyTorque"), "0.737309");
}

TEST_F(HartGYRETest, TheSameSeedAndClockGiveTheSameBytes) {
  const auto conversation = [&](unsigned seed) {
    restart(seed);
    std::string all;
    takeSample(30);
    for (const Answer& answer : askHalf(1, 1, 21)) all += answer.document.xml();
    for (const char* group : {"monitoringVariables", "sampling", "recipe1", "deviceStatus", "eventLog"})
      for (const Answer& answer : ask(requestText(group, "read", ""))) all += answer.document.xml();
    return all;
  };
  const std::string first = conversation(7);
  EXPECT_EQ(conversation(7), first);
  EXPECT_NE(conversation(8), first);
}

TEST_F(HartGYRETest, DampingSmoothsTheReading) {
  ASSERT_EQ(write("outputSignal", item("damping", "30")), "");
  double rough = 0, smooth = 0, lastRough = number("consistencyUnfiltered"), lastSmooth = number("consistency");
  for (int i = 0; i < 40; ++i) {
    rough += std::abs(number("consistencyUnfiltered") - lastRough);
    smooth += std::abs(number("consistency") - lastSmooth);
    lastRough = number("consistencyUnfiltered");
    lastSmooth = number("consistency");
  }
  EXPECT_LT(smooth * 3, rough);
}

// --- Recipes ---

TEST_F(HartGYRETest, SlopeAndOffsetChangeTheReading) {
  EXPECT_NEAR(changeBy(item("recipe1LinearizationOffsetP2", "1.5")), 1.5, 0.4);
  const double reading = number("consistencyUnfiltered") - 1.5;
  EXPECT_NEAR(changeBy(item("recipe1LinearizationSlopeP1", "2")), reading, 0.6);
}

TEST_F(HartGYRETest, TheFillerLeavesNoTorqueAndCounts) {
  const double reading = number("consistencyUnfiltered");
  EXPECT_NEAR(changeBy(item("recipe1Filler", "20")), reading / 0.8 - reading, 0.4);
}

TEST_F(HartGYRETest, CurveAndPulpBearOneName) {
  EXPECT_GT(changeBy(item("recipe1PulpType", "8")), 1.0);
  EXPECT_EQ(value("recipe1CurveType"), "8");
  EXPECT_LT(changeBy(item("recipe1CurveType", "1")), -1.0);
  EXPECT_EQ(value("recipe1PulpType"), "1");
  EXPECT_EQ(write("recipe1", item("recipe1CurveType", "1") + item("recipe1PulpType", "8")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("recipe1", item("recipe1CurveType", "8") + item("recipe1PulpType", "8")), "");
}

TEST_F(HartGYRETest, ATypedCurveCountsOnlyWhileItIsChosen) {
  EXPECT_NEAR(changeBy(item("recipe1PolynomeC0", "30")), 0, 0.4);
  EXPECT_GT(changeBy(item("recipe1CurveType", "63") + item("recipe1PolynomeC1", "10")), 20);
  EXPECT_EQ(value("recipe1PulpType"), "1");
  EXPECT_NEAR(changeBy(item("recipe1PulpType", "8")), 0, 0.4);
  EXPECT_EQ(value("recipe1CurveType"), "63");
}

TEST_F(HartGYRETest, APulpWithoutACurveForTheSensorIsRefused) {
  EXPECT_EQ(write("assemblyRelated", item("sensorType", "3")), "");
  EXPECT_EQ(write("recipe1", item("recipe1PulpType", "9")), "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed");
  EXPECT_EQ(write("recipe1", item("recipe1CurveType", "9")), "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed");
  EXPECT_EQ(write("recipe1", item("recipe1PulpType", "5")), "");
  EXPECT_EQ(write("recipe1", item("recipe1PulpType", "10")), "hartCmdErrInvalidSelection");
}

TEST_F(HartGYRETest, TheSoftwareDecidesOnTheCurve) {
  ASSERT_EQ(write("recipe1", item("recipe1PulpType", "6")), "");
  const double of67 = number("consistencyUnfiltered");
  device->setFault("software", "1.1");
  EXPECT_LT(number("consistencyUnfiltered"), of67 - 0.02);
  device->setFault("software", "1.B");
  EXPECT_NEAR(number("consistencyUnfiltered"), of67, 0.3);
}

TEST_F(HartGYRETest, SaysWhetherTheActiveRecipeIsCalibrated) {
  EXPECT_EQ(value("activeRecipeCalibrated"), "1");
  // A special grade without samples: one can choose it, and measures by the general curve.
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "4")), "");
  EXPECT_EQ(value("activeRecipeCalibrated"), "0");
  EXPECT_NEAR(number("consistency"), 5.9, 1.6);
  ASSERT_EQ(write("recipe4", item("recipe4CurveType", "63")), "");
  EXPECT_EQ(value("activeRecipeCalibrated"), "0") << "all factors are 0";
  ASSERT_EQ(write("recipe4", item("recipe4PolynomeC1", "9")), "");
  EXPECT_EQ(value("activeRecipeCalibrated"), "1");
}

// The count is a command of its own: who reads a recipe finds it in an answer without other values.
TEST_F(HartGYRETest, TheCountOfSamplesComesAlone) {
  const auto all = ask(requestText("recipe1", "read", ""));
  ASSERT_EQ(all.size(), 4u);
  EXPECT_THAT(names(all[2].document), ElementsAre("recipe1LinearizationSlopeP1", "recipe1LinearizationOffsetP2"));
  EXPECT_THAT(names(all[3].document), ElementsAre("recipe1SampleCount"));
  EXPECT_EQ(response(all[3].document).attribute("isFinal"), "1");
  EXPECT_EQ(value("recipe1SampleCount"), "20");
  const auto mixed = ask(readOf({"recipe1SampleCount", "recipe2SampleCount", "tag"}));
  ASSERT_EQ(mixed.size(), 3u);
  EXPECT_THAT(names(mixed[2].document), ElementsAre("tag"));
}

// --- Revisions ---

TEST_F(HartGYRETest, RevisionsAreReadTogetherOrOneOfThemIsRefused) {
  const std::string both = requestText("recipe1", "read", anItem("tcuSWRevisionNumber") + anItem("swRevisionNumber"));
  auto all = ask(both);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='swRevisionNumber']/*"), "1.67");
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='tcuSWRevisionNumber']/*"), "1.2");
  device->setFault("software", "1.65");
  device->setFault("lacks", "tcuSWRevisionNumber");
  all = ask(both);
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='swRevisionNumber']/*"), "1.65");
  EXPECT_THAT(names(all[1].document), ElementsAre("tcuSWRevisionNumber"));
  EXPECT_EQ(errorOf(all), "hartCmdErrCommandIsNotImplemented");
  EXPECT_EQ(response(all[1].document).attribute("name"), "recipe1");
}

TEST_F(HartGYRETest, SoftwareThatLeavesTheWaterInTellsMoreTorqueAndReadsTheSame) {
  const double net = toldNumber(1, 20, "historyTorque");
  const double reading = number("consistencyUnfiltered");
  const double water = toldNumber(1, 0, "historyTorque");
  EXPECT_NEAR(water, 0.048, 0.003);
  for (const char* revision : {"1.65", "1.66"}) {
    device->setFault("software", revision);
    EXPECT_NEAR(toldNumber(1, 20, "historyTorque"), net, 1e-5) << "the unit takes it out";
    device->setFault("lacks", "tcuSWRevisionNumber");
    EXPECT_NEAR(toldNumber(1, 20, "historyTorque"), net + water, 1e-5);
    EXPECT_NEAR(toldNumber(1, 0, "historyTorque"), water, 1e-5);
    EXPECT_NEAR(number("consistencyUnfiltered"), reading, 0.3);
    device->setFault("none", "");
  }
  for (const char* revision : {"1.67", "1.A1"}) {
    device->setFault("software", revision);
    device->setFault("lacks", "tcuSWRevisionNumber");
    EXPECT_NEAR(toldNumber(1, 20, "historyTorque"), revision[2] == 'A' ? net + water : net, 1e-5) << "A is 65";
  }
}

// --- Failures ---

TEST_F(HartGYRETest, WithoutItsMotorItMeasuresNothing) {
  device->setFault("failure", "motor");
  EXPECT_EQ(value("torque"), "NaN");
  EXPECT_EQ(value("consistencyUnfiltered"), "NaN");
  EXPECT_EQ(value("statusMotorFailure"), "1");
  EXPECT_EQ(value("statusFailSafeActive"), "1");
  EXPECT_NE(value("consistency"), "NaN") << "holds its last value";
  ASSERT_EQ(write("outputSignal", item("failSafeType", "2")), "");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(value("outputCurrent"), "22");
  EXPECT_EQ(value("eventLogErrorCount02"), "2");
  device->setFault("none", "");
  EXPECT_NEAR(number("consistency"), 5.9, 1.6);
}

TEST_F(HartGYRETest, AWornSensorReadsTooLittle) {
  const double before = number("consistencyUnfiltered");
  device->setFault("drift", "30");
  EXPECT_LT(number("consistencyUnfiltered"), before - 0.8);
}

TEST_F(HartGYRETest, TheLoopTestDrivesTheOutput) {
  EXPECT_EQ(write("loopTest", item("loopTestValue", "12")), "");
  EXPECT_EQ(value("outputCurrent"), "12");
  EXPECT_EQ(value("statusLoopTestActive"), "1");
  EXPECT_EQ(write("loopTest", item("loopTestValue", "1")), "hartCmdErrParameterTooSmall");
  EXPECT_EQ(write("loopTest", item("loopTestValue", "0")), "");
  EXPECT_NE(value("outputCurrent"), "12");
  EXPECT_EQ(write("rangeValues", item("lowerRangeValue", "9.5")), "hartCmdErrSpanTooSmall");
}

}  // namespace
}  // namespace ostrand::test
