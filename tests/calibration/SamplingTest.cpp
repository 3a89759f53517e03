#include "calibration/CalibrationBench.h"
#include "support/RecordingProbe.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRefusal[] = {R"(ShowMessage "error" "pleaseStopSamplingSample1First")", R"(ShowMessage "error" "pleaseStopSamplingSample2First")"};

using Lines = std::vector<std::string>;

// One sample on one way; `own` is the sample of the test, `other` the one that must not run with it.
class SamplingTest : public testing::TestWithParam<std::tuple<Way, int>> {
 protected:
  const Way way = std::get<0>(GetParam());
  const int own = std::get<1>(GetParam());
  const int other = 3 - own;
  CalibrationBench bench{way};

  const std::string name = "sample" + std::to_string(own);
  const std::string idle = "T1 T2";
  const std::string running = own == 1 ? "S1 T2" : "T1 S2";
  const std::string otherRunning = own == 1 ? "T1 S2" : "S1 T2";
  const std::string failed = own == 1 ? "T2" : "T1";

  Lines startRequests() const {
    if (way == Way::Profibus)
      return {"SendRequest write sampling: executeAction=" + std::to_string(own + 2), "ReadRequest read sampling: actionStatus"};
    return {"SendRequest write sampling: sampleStart=" + std::to_string(own - 1)};
  }
  Lines stopRequests() const {
    if (way == Way::Profibus)
      return {"SendRequest write sampling: executeAction=" + std::to_string(own + 4),
              "ReadRequest read sampling: sample1ConsistencyAverage sample1Deviation sample2ConsistencyAverage sample2Deviation"};
    if (way == Way::Hart) return {"ReadRequest read sampling: " + name + "Deviation " + name + "ConsistencyAverage " + name + "ShearForceAverage"};
    return {"ReadRequest read sampling: " + name + "Deviation " + name + "ConsistencyAverage"};
  }
  static Lines joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }
  // Confirmed.
  void start(int sample) {
    bench.messenger->answers = {4};
    bench.take(sample).click();
  }
  void started() {
    start(own);
    bench.lines();
    ASSERT_EQ(bench.visible(), running);
  }
  const char* strategy() const { return way == Way::Profibus ? "BusProfibus " : "BusHart "; }
  // The start fails at its write: who reports it.
  void announceFailedStart() {
    bench.calls.fail("SendRequest");
    if (way == Way::Profibus)
      bench.messenger->announce("BusProfibus ExecuteAction: ", 440);
    else
      bench.messenger->announce("BusHart IBusDependent_StartSampling" + std::to_string(own) + ": ", 440);
    bench.announce("Sample1Button_Click");
  }
  void announceFailedStop() {
    bench.calls.fail("ReadRequest");
    if (way == Way::Profibus) bench.messenger->announce("BusProfibus ReadSampleData: ", 440);
    if (way == Way::Hart) bench.messenger->announce("BusHart IBusDependent_StopSampling" + std::to_string(own) + ": ", 440);
    bench.announce("Sample1Button_Click");
  }
  void failStart() {
    announceFailedStart();
    start(own);
    bench.lines();
    ASSERT_EQ(bench.visible(), failed);
  }
};

INSTANTIATE_TEST_SUITE_P(Ways, SamplingTest, testing::Combine(testing::Values(Way::Hart, Way::Profibus, Way::Fjell), testing::Values(1, 2)),
                         [](const auto& each) { return nameOf(std::get<0>(each.param)) + std::to_string(std::get<1>(each.param)); });

// --- the ways between the states

TEST_P(SamplingTest, BeginsIdle) { EXPECT_EQ(bench.visible(), idle); }

TEST_P(SamplingTest, AConfirmedTakeStarts) {
  start(own);
  EXPECT_EQ(bench.lines(), joined({{kQuestion}, startRequests(), {kStarted}}));
  EXPECT_EQ(bench.visible(), running);
  EXPECT_EQ(bench.view->focused(), &bench.stop(own));
}

TEST_P(SamplingTest, AnyOtherAnswerChangesNothing) {
  for (const int answer : {5, 0, 3, -4, 44}) {
    bench.average(own).Text("3.21");
    bench.messenger->answers = {answer};
    bench.take(own).click();
    EXPECT_THAT(bench.lines(), ElementsAre(kQuestion)) << answer;
    EXPECT_EQ(bench.visible(), idle);
    EXPECT_EQ(bench.average(own).Text(), "3.21");
  }
}

TEST_P(SamplingTest, AStopAsksNothingAndEndsTheSample) {
  started();
  Control* const focus = &bench.get("cte_laboratoryResults(0)");
  focus->SetFocus();
  bench.stop(own).click();
  EXPECT_EQ(bench.lines(), joined({stopRequests(), {kStopped}}));
  EXPECT_EQ(bench.visible(), idle);
  EXPECT_EQ(bench.view->focused(), focus) << "the focus is not moved";
}

TEST_P(SamplingTest, BothButtonsAreAwayWhileTheBusWorks) {
  const auto checkDuring = [&](const char* call) { bench.calls.during(call, [&] { EXPECT_EQ(bench.visible(), failed) << call; }); };
  checkDuring("SendRequest");
  start(own);
  checkDuring("ReadRequest");
  bench.stop(own).click();
  EXPECT_EQ(bench.visible(), idle);
}

TEST_P(SamplingTest, AStartThatFailsHidesBothButtons) {
  announceFailedStart();
  start(own);
  EXPECT_EQ(bench.visible(), failed);
  EXPECT_THAT(bench.lines(), testing::Not(testing::Contains(kStarted))) << "the parent is not told";
}

TEST_P(SamplingTest, AStopThatFailsHidesBothButtons) {
  started();
  announceFailedStop();
  bench.stop(own).click();
  EXPECT_EQ(bench.visible(), failed);
  EXPECT_THAT(bench.lines(), testing::Not(testing::Contains(kStopped)));
}

TEST_P(SamplingTest, WhileOneRunsTheOtherIsRefusedAfterTheQuestion) {
  started();
  start(other);
  EXPECT_THAT(bench.lines(), ElementsAre(kQuestion, kRefusal[own - 1]));
  EXPECT_EQ(bench.visible(), running);
  for (const int answer : {5, 0}) {
    bench.messenger->answers = {answer};
    bench.take(other).click();
    EXPECT_THAT(bench.lines(), ElementsAre(kQuestion));
    EXPECT_EQ(bench.visible(), running);
  }
}

TEST_P(SamplingTest, LeavingStopsTheSampleOrStays) {
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_THAT(bench.lines(), IsEmpty()) << "no sample runs";
  started();
  bench.view->SetSelectedView("sampling");
  for (const int answer : {5, 0, 3}) {
    bench.messenger->answers = {answer};
    EXPECT_FALSE(bench.view->LeaveSelectedView());
    EXPECT_THAT(bench.lines(), ElementsAre(kExitWarning)) << answer;
    EXPECT_EQ(bench.visible(), running);
    EXPECT_EQ(bench.view->GetSelectedView(), "sampling");
  }
  bench.messenger->answers = {4};
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_EQ(bench.lines(), joined({{kExitWarning}, stopRequests(), {kStopped}}));
  EXPECT_EQ(bench.visible(), idle);
}

TEST_P(SamplingTest, LeavingGoesOnAlsoWhenTheStopFails) {
  started();
  announceFailedStop();
  bench.messenger->answers = {4};
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_EQ(bench.visible(), failed);
}

TEST_P(SamplingTest, AFailedSampleHasNoWayOut) {
  failStart();
  EXPECT_TRUE(bench.view->LeaveSelectedView()) << "no Stop button is visible";
  bench.view->SetOfflineData(dataSetOf(way));
  bench.view->SetMessenger(bench.messenger);
  bench.messenger->raiseMode(20);
  bench.messenger->raiseMode(21);
  bench.view->SetSelectedView("recipes");
  bench.view->SetSelectedView("sampling");
  EXPECT_EQ(bench.visible(), failed);
  EXPECT_THAT(bench.lines(), IsEmpty());
}

TEST_P(SamplingTest, TheOtherSampleGoesOnBesideAFailedOne) {
  failStart();
  start(other);
  EXPECT_EQ(bench.visible(), own == 1 ? "S2" : "S1");
  bench.stop(other).click();
  EXPECT_EQ(bench.visible(), failed);
}

TEST_P(SamplingTest, ANewViewBeginsIdleWhateverRuns) {
  started();
  CalibrationBench another(way);
  EXPECT_EQ(another.visible(), idle);
}

// --- the parent

TEST_P(SamplingTest, AParentWithoutTheStatusInterfaceIsNotTold) {
  bench.parent->offersStatus = false;
  start(own);
  EXPECT_EQ(bench.lines(), joined({{kQuestion}, startRequests()}));
  bench.stop(own).click();
  EXPECT_EQ(bench.lines(), stopRequests());
  EXPECT_EQ(bench.visible(), idle);
}

TEST_P(SamplingTest, AParentThatFailsEndsTheHandler) {
  bench.calls.fail("NotifyStatus");
  bench.announce("Sample1Button_Click");
  start(own);
  EXPECT_EQ(bench.visible(), failed);
}

// --- the fields

TEST_P(SamplingTest, TheFieldsAreClearedInTheirOrder) {
  RecordingProbe probe;
  bench.average(own).Text("3.21");
  bench.desktop.setProbe(&probe);
  // What the strategy does is seen between the lines of the probe.
  bench.calls.during("SendRequest", [&] { probe.calls.lines.push_back("SendRequest"); });
  bench.calls.during("NotifyStatus", [&] { probe.calls.lines.push_back("NotifyStatus"); });
  start(own);
  bench.desktop.setProbe(nullptr);
  const std::string button = "Sample" + std::to_string(own) + "Button";
  const std::string first = own == 1 ? "cte_sampling(0)." : "cte_sampling(2).";
  const std::string second = own == 1 ? "cte_sampling(1)." : "cte_sampling(3).";
  const Lines hide{button + "(0).Visible = false", button + "(1).Visible = false"};
  const Lines clear{first + "Text = \"\"", second + "Text = \"\"", first + "Modified = true", second + "Modified = true"};
  const Lines show{button + "(1).Visible = true", button + "(1).SetFocus"};
  // Sample 1 is emptied before the request leaves, sample 2 after the parent has been told.
  EXPECT_EQ(probe.calls.take(),
            own == 1 ? joined({hide, clear, {"SendRequest", "NotifyStatus"}, show}) : joined({hide, {"SendRequest", "NotifyStatus"}, clear, show}));
  EXPECT_TRUE(bench.average(own).Modified());
  EXPECT_TRUE(bench.deviation(own).Modified());
}

TEST_P(SamplingTest, AFailedStartHasEmptiedTheFirstSampleOnly) {
  bench.average(own).Text("3.21");
  bench.deviation(own).Text("0.12");
  failStart();
  EXPECT_EQ(bench.average(own).Text(), own == 1 ? "" : "3.21");
  EXPECT_EQ(bench.deviation(own).Text(), own == 1 ? "" : "0.12");
}

TEST_P(SamplingTest, TheOtherSamplesFieldsStayUntouched) {
  const std::string before = bench.average(other).Text();
  ASSERT_FALSE(before.empty());
  started();
  bench.stop(own).click();
  EXPECT_EQ(bench.average(other).Text(), before);
  EXPECT_FALSE(bench.average(other).Modified());
}

TEST_P(SamplingTest, TheValuesAreVisibleBeforeAWarningComes) {
  started();
  bench.stop(own).click();
  bench.lines();
  std::string seen;
  bench.calls.during("ShowMessage", [&] { seen = bench.average(own).Text() + " " + bench.deviation(own).Text(); });
  bench.online("sampling", itemXml(name + "ConsistencyAverage", "3.5", "floatVal") + itemXml(name + "Deviation", "0.5", "floatVal") +
                               itemXml(name + "Quality", "1", "integerVal") + itemXml("actionStatusOK", "0", "integerVal"));
  EXPECT_EQ(seen, "3.50 0.500");
  EXPECT_FALSE(bench.average(own).Modified());
  EXPECT_THAT(bench.lines(), ElementsAre(way == Way::Profibus ? "ShowMessage \"error\" \"" + name + "DeviationLarge\""
                                                              : "ShowMessage \"warning\" \"" + name + "DeviationLarge\""));
}

TEST_P(SamplingTest, TheFieldsOfTheFrameAreNotHeldBack) {
  for (CtrTextEdit* field : {&bench.average(own), &bench.deviation(own)}) {
    EXPECT_FALSE(field->ExplicitApply()) << field->name();
    EXPECT_FALSE(field->KeepLocal()) << field->name();
  }
}

// --- levels, modes and focus

TEST_P(SamplingTest, BelowTheLevelOnlyTakingIsDisabled) {
  started();
  bench.messenger->userLevel = 2;
  bench.view->SetMessenger(bench.messenger);
  for (const int sample : {1, 2}) {
    EXPECT_FALSE(bench.take(sample).Enabled());
    EXPECT_TRUE(bench.stop(sample).Enabled());
  }
  bench.stop(own).click();
  EXPECT_EQ(bench.visible(), idle) << "a sample that runs can always be stopped";
  bench.messenger->raiseMode(20);
  bench.messenger->raiseMode(21);
  EXPECT_FALSE(bench.take(own).Enabled());
  bench.messenger->userLevel = 3;
  bench.view->SetMessenger(bench.messenger);
  EXPECT_TRUE(bench.take(own).Enabled());
}

TEST_P(SamplingTest, ModesDoNotTouchTheSampleButtons) {
  for (const int mode : {10, 11, 20, 21, 99}) {
    bench.messenger->raiseMode(mode);
    EXPECT_TRUE(bench.take(own).Enabled()) << mode;
    EXPECT_TRUE(bench.stop(own).Enabled()) << mode;
    EXPECT_EQ(bench.take(own).Caption(), own == 1 ? "Take Sample 1" : "Take Sample 2");
    EXPECT_EQ(bench.stop(own).Caption(), "Stop");
  }
}

TEST_P(SamplingTest, TheFocusGoesToTheFirstSamplesVisibleButton) {
  bench.view->SetSelectedView("sampling");
  bench.view->RequestFocus();
  EXPECT_EQ(bench.view->focused(), &bench.take(1));
  started();
  bench.view->RequestFocus();
  EXPECT_EQ(bench.view->focused(), own == 1 ? &bench.stop(1) : &bench.take(1));
}

TEST_P(SamplingTest, WithoutAnyButtonOfTheFirstSampleTheFocusFails) {
  bench.view->SetSelectedView("sampling");
  failStart();
  if (own == 1) bench.announce("ITaviView_RequestFocus", 5);
  bench.view->RequestFocus();
  EXPECT_EQ(bench.view->focused() == &bench.take(1), own == 2);
}

// --- a host that fails

TEST_P(SamplingTest, AQuestionThatFailsStopsTheClick) {
  bench.calls.fail("AskUser");
  bench.announce("Sample1Button_Click");
  bench.take(own).click();
  EXPECT_EQ(bench.visible(), idle);
  started();
  bench.calls.fail("AskUser");
  bench.announce("ITaviView_LeaveSelectedView");
  EXPECT_FALSE(bench.view->LeaveSelectedView()) << "it counts as an answer that stops";
  EXPECT_EQ(bench.visible(), running);
}

TEST_P(SamplingTest, ARefusalThatFailsEndsTheClick) {
  started();
  bench.calls.fail("ShowMessage");
  bench.announce("Sample1Button_Click");
  start(other);
  EXPECT_EQ(bench.visible(), running);
}

// --- what comes in between

TEST_P(SamplingTest, AConfirmedClickOnTheOtherDuringTheBusOperationStartsItToo) {
  bench.calls.during("SendRequest", [&] { start(other); });
  start(own);
  EXPECT_EQ(bench.visible(), "S1 S2") << "nothing guards that";
  bench.lines();
  bench.stop(own).click();
  EXPECT_THAT(bench.lines(), ElementsAre(kRefusal[other - 1])) << "and now each refuses to be stopped before the other";
  bench.stop(other).click();
  EXPECT_THAT(bench.lines(), ElementsAre(kRefusal[own - 1]));
  bench.messenger->answers = {4};
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_THAT(bench.lines(), ElementsAre(kExitWarning, kRefusal[1])) << "also when the view is left";
  EXPECT_EQ(bench.visible(), "S1 S2");
}

TEST_P(SamplingTest, LeavingDuringTheBusOperationAsksNothing) {
  bool left = false;
  bench.calls.during("SendRequest", [&] { left = bench.view->LeaveSelectedView(); });
  start(own);
  EXPECT_TRUE(left);
  EXPECT_EQ(bench.lines(), joined({{kQuestion}, startRequests(), {kStarted}}));
  EXPECT_EQ(bench.visible(), running);
}

TEST_P(SamplingTest, ASecondClickUnderTheQuestionAsksAgain) {
  bench.messenger->answers = {4, 5};
  bench.calls.during("AskUser", [&] { bench.take(own).click(); });
  bench.take(own).click();
  // The inner click was answered first, and started.
  EXPECT_EQ(bench.lines(), joined({{kQuestion, kQuestion}, startRequests(), {kStarted}}));
  EXPECT_EQ(bench.visible(), running);
}

TEST_P(SamplingTest, ASampleThatStartedUnderTheQuestionRefusesTheOther) {
  bench.messenger->answers = {4, 4};
  bench.calls.during("AskUser", [&] { bench.take(other).click(); });
  bench.take(own).click();
  EXPECT_EQ(bench.visible(), otherRunning);
  EXPECT_EQ(bench.lines().back(), kRefusal[other - 1]);
}

TEST_P(SamplingTest, AReleaseDuringTheBusOperationLetsItEnd) {
  bench.calls.during("SendRequest", [&] { bench.view->PrepareToRelease(); });
  start(own);
  EXPECT_EQ(bench.lines(), joined({{kQuestion}, startRequests(), {kStarted}}));
  EXPECT_EQ(bench.messenger->listeners(), 0u);
}

TEST_P(SamplingTest, TheEndOfTheViewDuringTheBusOperationLetsItEnd) {
  const Ref<CalibrationView> pin = bench.view;
  bench.calls.during("SendRequest", [&] {
    bench.view->Terminate();
    bench.view = nullptr;
  });
  bench.messenger->answers = {4};
  bench.take(own).click();
  EXPECT_EQ(bench.lines(), joined({{kQuestion}, startRequests()})) << "there is no parent left to tell";
}

TEST_P(SamplingTest, ReleasedUnderItsQuestionNothingStarts) {
  const Ref<CalibrationView> pin = bench.view;
  bench.calls.during("AskUser", [&] { pin->PrepareToRelease(); });
  start(own);
  EXPECT_THAT(bench.lines(), ElementsAre(kQuestion));
  EXPECT_EQ(bench.visible(), idle);
}

TEST_P(SamplingTest, ReleasedUnderTheExitWarningTheStopLeavesAllTheSame) {
  started();
  bench.messenger->answers = {4};
  bench.calls.during("AskUser", [&] {
    bench.view->PrepareToRelease();
    bench.view->Terminate();
    bench.view = nullptr;
  });
  CalibrationView* const view = bench.view.get();
  EXPECT_TRUE(view->LeaveSelectedView());
  EXPECT_EQ(bench.lines(), joined({{kExitWarning}, stopRequests()})) << "there is no parent left to tell";
}

TEST_P(SamplingTest, AReleasedViewReportsNothingAndCrashesNowhere) {
  bench.view->PrepareToRelease();
  bench.take(own).click();
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  bench.view->RequestFocus();
  bench.online("sampling");
  EXPECT_THAT(bench.lines(), IsEmpty());
  EXPECT_EQ(bench.visible(), idle);
}

}  // namespace
}  // namespace ostrand::test
