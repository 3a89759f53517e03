#include "calibration/CalibrationBench.h"
#include "support/RecordingProbe.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SamplingWaysTest, TheViewHasItsThreeFramesAndItsName) {
  for (const Way way : {Way::Hart, Way::Fjell}) {
    CalibrationBench bench(way);
    std::vector<std::string> keys;
    for (Control* control : bench.view->GetControls())
      if (control->kind() == Control::Kind::Frame) keys.push_back(control->Tag());
    EXPECT_THAT(keys, ElementsAre("laboratoryResults", "sampling", "recipes"));
    bench.view->SetSelectedView("calibration");
    EXPECT_EQ(bench.view->GetSelectedView(), "laboratoryResults");
    for (const auto& [name, tag, caption] : {std::tuple{"Sample1Button(0)", "takeSample1", "Take Sample 1"},
                                             {"Sample1Button(1)", "stop", "Stop"},
                                             {"Sample2Button(0)", "takeSample2", "Take Sample 2"},
                                             {"Sample2Button(1)", "stop", "Stop"}}) {
      EXPECT_EQ(bench.button(name).Tag(), tag);
      EXPECT_EQ(bench.button(name).Caption(), caption);
    }
    const char* const names[] = {"sample1ConsistencyAverage", "sample1Deviation", "sample2ConsistencyAverage", "sample2Deviation"};
    for (int i = 0; i < 4; ++i) {
      const std::string index = "(" + std::to_string(i) + ")";
      EXPECT_EQ(bench.get("cte_sampling" + index).Tag(), std::string("ctr_") + names[i]);
      EXPECT_EQ(bench.get("lblSampling" + index).Tag(), names[i]);
    }
    EXPECT_EQ(bench.get("ctrDateLabels(0)").Tag(), "date_laboratoryResults");
    EXPECT_EQ(bench.get("ctrDateLabels(1)").Tag(), "date_sampling");
    EXPECT_EQ(bench.get("ctrDateLabels(2)").Tag(), "date_recipes");
  }
}

TEST(SamplingWaysTest, TheButtonsOfASampleStandOnOnePlace) {
  for (const Way way : {Way::Hart, Way::Fjell}) {
    CalibrationBench bench(way);
    for (const int sample : {1, 2}) {
      EXPECT_EQ(bench.take(sample).Left(), bench.stop(sample).Left());
      EXPECT_EQ(bench.take(sample).Top(), bench.stop(sample).Top());
    }
  }
}

TEST(SamplingWaysTest, OnProfibusTheOldValuesOfTheSecondSampleRemainDuringTheWait) {
  CalibrationBench bench(Way::Profibus);
  for (const int sample : {1, 2}) {
    bench.average(sample).Text("3.21");
    std::string during = "nothing";
    bench.desktop.onWait = [&](double seconds) {
      EXPECT_EQ(seconds, 1.0);
      during = bench.average(sample).Text();
    };
    bench.take(sample).click();
    EXPECT_EQ(during, sample == 1 ? "" : "3.21");
    EXPECT_EQ(bench.average(sample).Text(), "");
    bench.desktop.onWait = nullptr;
    bench.stop(sample).click();
  }
}

TEST(SamplingWaysTest, ASecondClickDuringTheWaitFindsNoButton) {
  CalibrationBench bench(Way::Profibus);
  for (const int sample : {1, 2}) {
    int refused = 0;
    bench.desktop.schedule(0.5, [&] {
      for (CommandButton* button : {&bench.take(sample), &bench.stop(sample)}) {
        try {
          button->click();
        } catch (const RuntimeError& error) {
          refused += error.number() == RuntimeError::PermissionDenied;
        }
      }
    });
    bench.take(sample).click();
    EXPECT_EQ(refused, 2);
    bench.stop(sample).click();
  }
}

TEST(SamplingWaysTest, ARefusedStartOnProfibusIsToldByItsAnswerOnly) {
  CalibrationBench bench(Way::Profibus);
  bench.take(1).click();
  EXPECT_THAT(bench.lines(), testing::Not(testing::Contains(testing::StartsWith("ShowMessage"))));
  EXPECT_EQ(bench.visible(), "S1 T2");
  bench.online("sampling", itemXml("actionStatusInvalidSampleNumber", "1", "integerVal"));
  EXPECT_THAT(bench.lines(), ElementsAre(R"(ShowMessage "error" "actionStatusInvalidSampleNumber")"));
  EXPECT_EQ(bench.visible(), "S1 T2") << "the button stays";
}

TEST(SamplingWaysTest, AnotherDataSetDuringTheWaitLetsTheOperationEnd) {
  CalibrationBench bench(Way::Profibus);
  bench.desktop.schedule(0.5, [&] { bench.view->SetOfflineData(dataSetOf(Way::Hart)); });
  bench.take(1).click();
  EXPECT_THAT(bench.lines(),
              ElementsAre(kQuestion, "SendRequest write sampling: executeAction=3", "ReadRequest read sampling: actionStatus", kStarted));
  // What is awaited went with the old strategy, and the new one stops in its own way.
  bench.online("sampling", itemXml("actionStatusInvalidSampleNumber", "1", "integerVal"));
  EXPECT_THAT(bench.lines(), IsEmpty());
  bench.stop(1).click();
  EXPECT_THAT(bench.lines(), ElementsAre("ReadRequest read sampling: sample1Deviation sample1ConsistencyAverage sample1ShearForceAverage", kStopped));
}

TEST(SamplingWaysTest, AReleaseDuringTheWaitLeavesTheOperationItsMessenger) {
  for (const bool stops : {false, true}) {
    CalibrationBench bench(Way::Profibus);
    if (stops) bench.take(1).click();
    bench.lines();
    bench.desktop.schedule(0.5, [&] { bench.view->PrepareToRelease(); });
    (stops ? bench.stop(1) : bench.take(1)).click();
    const auto lines = bench.lines();
    EXPECT_THAT(lines, testing::Contains(testing::StartsWith("ReadRequest read sampling: ")));
    EXPECT_EQ(lines.back(), stops ? kStopped : kStarted);
    EXPECT_EQ(bench.messenger->count(), 1u) << "the strategy is gone with the operation";
  }
}

TEST(SamplingWaysTest, AnAnswerDuringTheWaitOfAStopIsReadUnderIt) {
  CalibrationBench bench(Way::Profibus);
  bench.take(1).click();
  bench.lines();
  bench.desktop.schedule(1.0, [&] { bench.online("sampling", itemXml("sample1Quality", "0", "integerVal")); });
  bench.stop(1).click();
  EXPECT_THAT(
      bench.lines(),
      ElementsAre("SendRequest write sampling: executeAction=5", R"(ShowMessage "sampling" "actionStatusOK")",
                  "ReadRequest read sampling: sample1ConsistencyAverage sample1Deviation sample2ConsistencyAverage sample2Deviation", kStopped));
  bench.online("sampling", itemXml("sample1Quality", "1", "integerVal"));
  EXPECT_THAT(bench.lines(), IsEmpty()) << "the verdict has been told";
}

TEST(SamplingWaysTest, WithoutAStrategyAClickIsReported) {
  CalibrationBench bench(Way::Hart, "");
  for (const int sample : {1, 2}) {
    bench.announce("Sample1Button_Click", 91);
    bench.take(sample).click();
  }
  EXPECT_EQ(bench.visible(), "");
  bench.announce("ITaviDataUser_setOnlineData", 91);
  bench.online("sampling", itemXml("sample1ConsistencyAverage", "3.5", "floatVal"));
  bench.announce("cmdRecipeApplyButton_Click", 91);
  bench.apply().click();
}

TEST(SamplingWaysTest, TheLowConsistencyBladeStaysWithItsBus) {
  CalibrationBench bench(Way::Fjell, "DPV1");
  bench.take(2).click();
  EXPECT_THAT(bench.lines(), ElementsAre(kQuestion, "SendRequest write sampling: sampleStart=1", kStarted));
  CalibrationBench unknown(Way::Fjell, "FF");
  EXPECT_THAT(unknown.lines(), IsEmpty()) << "it does not look at the category";
}

TEST(SamplingWaysTest, TheLaterStrategyServes) {
  CalibrationBench bench(Way::Hart, "DPV1");
  bench.view->SetOfflineData(dataSet("", "", "", "HART"));
  bench.take(1).click();
  EXPECT_THAT(bench.lines(), ElementsAre(kQuestion, "SendRequest write sampling: sampleStart=0", kStarted));
  bench.view->SetOfflineData(dataSet("", "", "", "hart"));
  EXPECT_THAT(bench.lines(), ElementsAre(R"(ShowMessage "VwCalibration" "Not recognizing the bus category: hart")"));
  bench.stop(1).click();
  EXPECT_THAT(bench.lines(), ElementsAre("ReadRequest read sampling: sample1Deviation sample1ConsistencyAverage sample1ShearForceAverage", kStopped))
      << "it keeps what it held";
}

}  // namespace
}  // namespace ostrand::test
