#include <gmock/gmock.h>

#include <cmath>

#include "simulator/DeviceBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class HartQX5Test : public DeviceBench {
 protected:
  HartQX5Test() : DeviceBench("hartQX5") {}

  static std::string channel(int number, const char* what) { return "channel" + std::to_string(number) + what; }
  static std::string test(int number, const char* mA) { return item(channel(number, "LoopTestValue"), mA); }
  std::string current(int number) { return value(channel(number, "OutputCurrent").c_str()); }
  // The bits of the status that are raised, without "status".
  std::vector<std::string> raised() {
    std::vector<std::string> names;
    for (const Answer& answer : ask(requestText("deviceStatus", "read", "")))
      for (const Node& bit : answer.document.selectAll("//comm:item[comm:integerVal='1']")) names.emplace_back(bit.attribute("name").substr(6));
    return names;
  }
};

// --- Measurement ---

TEST_F(HartQX5Test, TheMeasurementHangsTogether) {
  desktop->advance(60);
  const double consistency = number("consistency");
  const double ash = number("ash");
  EXPECT_NEAR(consistency, 0.9, 0.15);
  EXPECT_NEAR(number("ashPercent"), 100 * ash / consistency, 3);
  EXPECT_NEAR(number("ashPercent"), 24, 4);
  EXPECT_NEAR(number("totalRetention"), 78, 6);
  EXPECT_NEAR(number("fillerRetention"), 52, 8);
  EXPECT_NEAR(number("floc"), 2.4, 0.6);
  EXPECT_NEAR(number("processTemperature"), 47, 3);
}

TEST_F(HartQX5Test, EachChannelDrivesAnOutputOfItsOwn) {
  const struct {
    const char* variable;
    double lower, upper;
  } channels[] = {{"consistency", 0, 2},      {"ash", 0, 1}, {"floc", 0, 10}, {"ashPercent", 0, 50}, {"totalRetention", 50, 100},
                  {"fillerRetention", 0, 100}};
  for (int i = 0; i < 6; ++i) {
    const auto& [variable, lower, upper] = channels[i];
    EXPECT_NEAR(number(channel(i, "OutputCurrent").c_str()), 4 + 16 * (number(variable) - lower) / (upper - lower), 0.2) << variable;
  }
  ASSERT_EQ(write("rangeValues", item("channel4LowerRangeValue", "0") + item("channel4UpperRangeValue", "50")), "");
  EXPECT_EQ(current(4), "22");
  EXPECT_THAT(raised(), testing::Contains("HARTLoopCurrentOutOfLimits"));
  EXPECT_EQ(write("rangeValues", item("channel1UpperRangeValue", "0.05")), "hartCmdErrSpanTooSmall");
  // The smallest span itself will do, though no binary number is 0.1 or 0.3.
  EXPECT_EQ(write("rangeValues", item("channel0LowerRangeValue", "0.1") + item("channel0UpperRangeValue", "0.3")), "");
}

TEST_F(HartQX5Test, DampingSmoothsAChannelAlone) {
  const auto roughness = [&] {
    double sum = 0;
    double last = number("consistency");
    for (int i = 0; i < 40; ++i) {
      desktop->advance(1);
      const double next = number("consistency");
      sum += std::abs(next - last);
      last = next;
    }
    return sum;
  };
  ASSERT_EQ(write("outputSignal", item("channel0Damping", "0")), "");
  const double rough = roughness();
  ASSERT_EQ(write("outputSignal", item("channel1Damping", "0") + item("channel0Damping", "60")), "");
  EXPECT_LT(roughness() * 5, rough);
}

TEST_F(HartQX5Test, TheSameSeedAndClockGiveTheSameBytes) {
  const auto conversation = [&](unsigned seed) {
    restart(seed);
    std::string all;
    desktop->advance(700);
    for (const char* group : {"monitoringVariables", "waterValues", "deviceStatus"})
      for (const Answer& answer : ask(requestText(group, "read", ""))) all += answer.document.xml();
    return all;
  };
  const std::string first = conversation(3);
  EXPECT_EQ(conversation(3), first);
  EXPECT_NE(conversation(4), first);
}

TEST_F(HartQX5Test, LookingOftenMakesNoDifference) {
  desktop->advance(900);
  const std::string seldom = value("consistency");
  restart(1);
  for (int i = 0; i < 90; ++i) {
    desktop->advance(9.65);
    value("ash");  // takes 0.35 s
  }
  EXPECT_EQ(value("consistency"), seldom);
}

TEST_F(HartQX5Test, KnownValues) {
  EXPECT_EQ(value("consistency"), "0.839364");
  desktop->advance(700);
  EXPECT_EQ(value("waterALaserFilt"), "4.35511");
}

// --- Grades ---

TEST_F(HartQX5Test, TheGradeInForceChangesTheReading) {
  const double first = number("consistency");
  ASSERT_EQ(write("activeGrade", item("activeGrade", "2")), "");
  const double second = number("consistency");
  EXPECT_GT(std::abs(second - first), 0.03);
  // The digital input decides: its grade is the second one as delivered.
  ASSERT_EQ(write("activeGrade", item("activeGrade", "3")), "");
  EXPECT_NEAR(number("consistency"), second, 0.01);
  ASSERT_EQ(write("activeGrade", item("binaryInputGrade", "1")), "");
  EXPECT_NEAR(number("consistency"), first, 0.01);
  EXPECT_EQ(write("activeGrade", item("activeGrade", "4")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(value("activeGrade"), "3");
}

// --- Water ---

TEST_F(HartQX5Test, TheMeasurementStandsStillWhileItLooksAtWater) {
  ASSERT_EQ(write("outputSignal", item("channel0Damping", "0")), "");
  const std::string before = value("waterDLedV");
  desktop->advance(602);  // measurementTime is 600 s, the water takes 30 s
  EXPECT_EQ(value("statusWaterMeasurementActive"), "1");
  const std::string held = value("consistency");
  desktop->advance(15);
  EXPECT_EQ(value("consistency"), held);
  EXPECT_EQ(value("waterDLedV"), before);
  desktop->advance(15);
  EXPECT_EQ(value("statusWaterMeasurementActive"), "0");
  EXPECT_NE(value("consistency"), held);
  EXPECT_NE(value("waterDLedV"), before);
}

TEST_F(HartQX5Test, AFilteredValueBeyondItsLimitsRaisesABit) {
  EXPECT_THAT(raised(), ElementsAre("HARTColdStart"));
  ASSERT_EQ(write("sensorLimits", item("limitWaterSLedHigh", "2.3")), "");
  EXPECT_THAT(raised(), ElementsAre("HARTNonPVOutOfLimits", "HARTMoreStatusAvailable", "HARTConfigurationChanged", "WaterSLedOutOfLimits"));
  ASSERT_EQ(write("sensorLimits", item("limitWaterSLedHigh", "3.2")), "");
  EXPECT_EQ(value("statusWaterSLedOutOfLimits"), "0");
  EXPECT_EQ(write("sensorLimits", item("limitWaterSLedHigh", "1.5")), "hartCmdErrInvalidSelection");
}

TEST_F(HartQX5Test, DirtyWindowsDarkenTheWaterAndNotTheReading) {
  const double before = number("consistency");
  const double voltage = number("waterALedV");
  device->setFault("drift", "40");
  EXPECT_NEAR(number("waterALedV"), 0.6 * voltage, 0.05);
  EXPECT_NEAR(number("consistency"), before, 0.02);
  EXPECT_THAT(raised(), testing::IsSupersetOf({"WaterDLedOutOfLimits", "WaterALedOutOfLimits", "WaterSLedOutOfLimits", "WaterALaserOutOfLimits"}));
}

TEST_F(HartQX5Test, WithoutAnyLightTheOutputsDoWhatTheyDoInAFailure) {
  device->setFault("drift", "100");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(current(0), "22");
  EXPECT_EQ(current(4), "12.9");  // held, and none was there before
  EXPECT_EQ(value("statusFailSafeActive"), "0");
}

// --- Loop test ---

TEST_F(HartQX5Test, ALoopTestAnswersChannelByChannel) {
  const auto started = ask(writeOf("loopTest", test(0, "12.5") + test(3, "5") + test(5, "20")));
  ASSERT_EQ(started.size(), 3u);
  const char* const names[] = {"channel0LoopTestValue", "channel3LoopTestValue", "channel5LoopTestValue"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_THAT(DeviceBench::names(started[i].document), ElementsAre(names[i]));
    EXPECT_EQ(response(started[i].document).attribute("isFinal"), i == 2 ? "1" : "0");
  }
  EXPECT_EQ(started[0].document.selectText("//comm:floatVal"), "12.5");
  EXPECT_EQ(current(0), "12.5");
  EXPECT_EQ(current(3), "5");
  EXPECT_EQ(current(5), "20");
  EXPECT_NE(current(1), "12.5");
  EXPECT_THAT(raised(), ElementsAre("HARTFixedCurrentActive", "HARTMoreStatusAvailable", "HARTColdStart", "LoopTestActive"));

  // Each channel ends for itself.
  const auto stopped = ask(writeOf("loopTest", test(0, "0")));
  EXPECT_EQ(stopped[0].document.selectText("//comm:floatVal"), "0");
  EXPECT_NE(current(0), "12.5");
  EXPECT_EQ(current(3), "5");
  EXPECT_EQ(value("statusLoopTestActive"), "1");
  EXPECT_EQ(ask(writeOf("loopTest", test(3, "0") + test(5, "0"))).size(), 2u);
  EXPECT_EQ(value("statusLoopTestActive"), "0");
  EXPECT_EQ(value("statusHARTFixedCurrentActive"), "0");
}

TEST_F(HartQX5Test, ARefusedChannelEndsTheRequestAndNotTheTest) {
  const auto all = ask(writeOf("loopTest", test(0, "12") + test(1, "1") + test(2, "12")));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(errorOf(all), "hartCmdErrParameterTooSmall");
  EXPECT_THAT(names(all[1].document), ElementsAre("channel1LoopTestValue"));
  EXPECT_EQ(response(all[1].document).attribute("isFinal"), "1");
  EXPECT_EQ(current(0), "12");
  EXPECT_NE(current(2), "12");
}

TEST_F(HartQX5Test, AMixedWriteIsAnOrdinaryOne) {
  const auto all = ask(writeOf("x", test(0, "12") + item("channel0Damping", "3") + test(1, "1")));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(errorOf(all), "hartCmdErrParameterTooSmall");
  EXPECT_NE(current(0), "12");
  EXPECT_EQ(value("channel0Damping"), "5");
}

TEST_F(HartQX5Test, TheTestValuesCanOnlyBeWritten) {
  const auto all = ask(requestText("loopTest", "read", ""));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(names(all[0].document).front(), "channel0OutputCurrent");
  EXPECT_EQ(errorOf(ask(readOf({"channel0LoopTestValue"}))), "missingItems");
}

// --- Status ---

TEST_F(HartQX5Test, AFailedLightLeavesNoMeasurement) {
  const std::string held = current(5);
  device->setFault("failure", "laser");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(current(0), "22");
  EXPECT_EQ(current(5), held);  // as configured
  EXPECT_EQ(value("waterALaserV"), "0");
  EXPECT_NE(value("waterALedV"), "0");
  EXPECT_THAT(raised(), ElementsAre("HARTNonPVOutOfLimits", "HARTMoreStatusAvailable", "HARTColdStart", "HARTDeviceFailure", "LaserFailure",
                                    "WaterALaserOutOfLimits", "WaterSLaserOutOfLimits", "FailSafeActive"));
  device->setFault("none", "");
  EXPECT_NEAR(number("consistency"), 0.9, 0.2);
  EXPECT_EQ(value("statusLaserFailure"), "0");
}

TEST_F(HartQX5Test, StatusFollowsTheProcess) {
  device->setFault("heat", "160");
  EXPECT_THAT(raised(), testing::IsSupersetOf({"HARTNonPVOutOfLimits", "ProcessTemperatureOutOfLimits", "ElectronicsTemperatureOutOfLimits"}));
  device->setFault("none", "");
  EXPECT_EQ(value("statusProcessTemperatureOutOfLimits"), "0");
  device->setFault("unsteady", "30");
  EXPECT_EQ(value("statusFlocOutOfLimits"), "1");
}

TEST_F(HartQX5Test, WithoutPowerNoTestGoesOn) {
  ASSERT_EQ(write("loopTest", test(2, "10")), "");
  EXPECT_EQ(value("statusHARTColdStart"), "1");
  EXPECT_EQ(value("statusHARTColdStart"), "0");
  device->setFault("powerCycle", "");
  EXPECT_NE(current(2), "10");
  EXPECT_EQ(value("statusHARTColdStart"), "1");
}

TEST_F(HartQX5Test, TheLongTagIsNotPacked) {
  EXPECT_EQ(write("identification", item("longTag", "Wire section, small letters")), "");
  EXPECT_EQ(write("identification", item("longTag", "åäö åäö åäö åäö åäö åäö åäö åäö ")), "") << "32 letters, however many bytes";
  EXPECT_EQ(write("identification", item("longTag", "more than thirty-two letters are no long tag")), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(write("identification", item("tag", "small")), "hartCmdErrInvalidSelection");
}

}  // namespace
}  // namespace ostrand::test
