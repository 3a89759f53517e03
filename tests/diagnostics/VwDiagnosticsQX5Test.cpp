#include "diagnostics/DiagnosticsBench.h"

namespace ostrand::test {
namespace {

// Every set of channels: what is typed is sent, what was sent is stopped, and the last answer of the last channel ends the test.
TEST(VwDiagnosticsQX5Test, EverySetOfChannelsIsStartedAndStopped) {
  for (int set = 0; set < 64; ++set) {
    SCOPED_TRACE(set);
    OpticalDiagnostics bench;
    bench.begin(opticalData());
    std::string started, stopped;
    for (int i = 0; i < 6; ++i) {
      if (!(set & 1 << i)) continue;
      bench.channel(i).type("1" + std::to_string(i));
      started += (started.empty() ? "" : " ") + std::to_string(i) + "=1" + std::to_string(i) + ".0";
      stopped += (stopped.empty() ? "" : " ") + std::to_string(i) + "=0";
    }
    bench.calls.take();
    bench.start().click();
    EXPECT_EQ(bench.sent(), set == 0 ? "nothing" : started);
    EXPECT_EQ(bench.stop().Enabled(), set != 0);
    if (set == 0) continue;
    bench.stop().click();
    EXPECT_EQ(bench.sent(), stopped);
    for (int i = 0; i < 6; ++i) {
      if (!(set & 1 << i)) continue;
      EXPECT_EQ(bench.channel(i).Text(), "1" + std::to_string(i) + ".0") << "the user's numbers stay";
      EXPECT_TRUE(bench.channel(i).Modified());
      EXPECT_TRUE(bench.stop().Enabled());
      bench.answers(i, "0");
    }
    EXPECT_FALSE(bench.stop().Enabled());
    EXPECT_EQ(bench.start().Tag(), "startTest");
  }
}

TEST(VwDiagnosticsQX5Test, CaptionsOfTheDesignStandUntilItIsLocalized) {
  OpticalDiagnostics bench;
  const auto captions = [&](const std::string& array, int count) {
    std::vector<std::string> all;
    for (int i = 0; i < count; ++i) all.push_back(bench.get<Label>(array + "(" + std::to_string(i) + ")").Caption());
    return all;
  };
  EXPECT_THAT(captions("lblLoopTest", 9), testing::ElementsAre("channelIndex", "Loop Test Value", "consistency", "ash", "floc", "ashPercent",
                                                               "totalRetention", "fillerRetention", "channelVariable"));
  EXPECT_THAT(captions("lblSensorLimits", 5), testing::ElementsAre("DLed Water", "ALed Water", "SLed Water", "ALaser Water", "SLaser Water"));
  EXPECT_THAT(captions("lblAlarmMinor", 2), testing::ElementsAre("Low", "High"));
  EXPECT_THAT(captions("lblWaterValuesMinor", 2), testing::ElementsAre("Voltage", "Filt"));
  EXPECT_EQ(bench.get<Label>("lblTitle(1)").Caption(), "Sensor Water Limits");
  EXPECT_EQ(bench.get<Label>("lblTitle(2)").Caption(), "Water Values");
  bench.begin(opticalData());
  EXPECT_EQ(captions("lblLoopTest", 9)[0], "L:channel");
  EXPECT_EQ(captions("lblSensorLimits", 5)[0], "L:limitWaterDLedLabel");
  EXPECT_EQ(captions("lblWaterValuesMinor", 2)[1], "L:waterFiltLabel");
  EXPECT_EQ(bench.get<Label>("lblTitle(2)").Caption(), "L:waterValues");
  EXPECT_THAT(captions("lblWaterValues", 5), testing::ElementsAre("DLed", "ALed", "SLed", "ALaser", "SLaser"))
      << "they are called so in every language";
}

TEST(VwDiagnosticsQX5Test, TheLimitBetweenRunningAndStoppedIsATenth) {
  for (const auto& [value, runs] : {std::pair{"0.1", false},
                                    {"0.10", false},
                                    {"1E-1", false},
                                    {"0.09999", false},
                                    {"-5", false},
                                    {"0.100000001", true},
                                    {"0.2", true},
                                    {"20", true}}) {
    SCOPED_TRACE(value);
    OpticalDiagnostics bench;
    bench.begin(opticalData());
    bench.channel(2).type("7");
    bench.start().click();
    bench.answers(2, value);
    EXPECT_EQ(bench.stop().Enabled(), runs);
    EXPECT_EQ(bench.channel(2).Text().empty(), !runs);
  }
}

}  // namespace
}  // namespace ostrand::test
