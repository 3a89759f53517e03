// What both diagnostics views must stand: a host or a control that fails, whichever it is, and a release in the middle.

#include "diagnostics/DiagnosticsBench.h"

namespace ostrand::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Truly;

template <class B>
struct DiagnosticsViewTest : testing::Test {};
using Benches = testing::Types<BladeDiagnostics, OpticalDiagnostics>;
TYPED_TEST_SUITE(DiagnosticsViewTest, Benches);

TYPED_TEST(DiagnosticsViewTest, EveryCallToTheHostFailsInTurn) {
  int total = 1;
  for (int failing = 1; failing <= total; ++failing) {
    TypeParam bench;
    bench.calls.arrived = 0;
    bench.calls.fail("*", failing);
    bench.day();
    if (failing == 1) total = bench.calls.arrived;
    const std::string failed = bench.calls.lastFailed;
    ASSERT_FALSE(failed.empty()) << failing;
    SCOPED_TRACE(std::to_string(failing) + " " + failed);
    // Edits that cannot subscribe are passed over by their walk.
    if (failed != "Subscribe" && failed != "Unsubscribe" && bench.left == 0) {
      EXPECT_THAT(bench.messenger->reports, Not(IsEmpty()));
    }
    for (const std::string& report : bench.messenger->reports)
      EXPECT_THAT(report, AnyOf(StartsWith(TypeParam::kReports), StartsWith("modView "), StartsWith(" modView "), StartsWith("BusProfibus "),
                                StartsWith("CtrStatus ")));
    EXPECT_LE(bench.messenger->reports.size(), 3u) << "a failure costs one statement";
    bench.isStillInUse();
  }
  EXPECT_GT(total, 60);
}

TYPED_TEST(DiagnosticsViewTest, EveryOperationOnAControlFailsInTurn) {
  int total = 1;
  for (int failing = 1; failing <= total; ++failing) {
    TypeParam bench;
    bench.probe.calls.arrived = 0;
    bench.probe.calls.fail("*", failing);
    bench.day();
    if (failing == 1) total = bench.probe.calls.arrived;
    SCOPED_TRACE(std::to_string(failing) + " " + bench.probe.calls.lastFailed);
    bench.desktop.setProbe(nullptr);
    bench.isStillInUse();
  }
  EXPECT_GT(total, 100);
}

TYPED_TEST(DiagnosticsViewTest, AHostOfWhichNothingWorksBreaksNothing) {
  TypeParam bench;
  bench.calls.failAlways("*");
  bench.day();
  bench.view->PrepareToRelease();
  EXPECT_FALSE(bench.view->GetMessenger());
}

const std::string kWarning = R"(AskUser "loopTest" "loopTestWarning")";
const std::string kExitWarning = R"(AskUser "loopTest" "loopTestExitWarning")";

TYPED_TEST(DiagnosticsViewTest, ATestValueIsNeverCollected) {
  TypeParam bench;
  bench.begin(TypeParam::data());
  bench.drive("12");
  bench.calls.take();
  for (const int mode : {1, 2}) bench.messenger->raiseGetChanges(mode);
  for (const std::string& line : bench.calls.take()) EXPECT_EQ(line.find("LoopTestValue"), line.npos) << line;
  bench.run();
  for (const int mode : {1, 2}) bench.messenger->raiseGetChanges(mode);
  for (const std::string& line : bench.calls.take()) {
    EXPECT_EQ(line.find("oopTestValue"), line.npos) << line;
  }
}

TYPED_TEST(DiagnosticsViewTest, ReleasedUnderTheWarningNothingStarts) {
  for (const int answer : {4, 0, 5})
    for (const bool terminates : {false, true}) {
      SCOPED_TRACE(answer);
      TypeParam bench;
      bench.begin(TypeParam::data());
      bench.drive("12");
      bench.calls.take();
      const auto pin = bench.view;
      bench.messenger->answers = {answer};
      bench.calls.during("AskUser", [&] {
        pin->PrepareToRelease();
        if (terminates) pin->Terminate();
      });
      bench.start().click();
      EXPECT_THAT(bench.calls.take(), ElementsAre(kWarning));
      EXPECT_FALSE(bench.stop().Enabled());
    }
}

TYPED_TEST(DiagnosticsViewTest, ReleasedUnderTheExitWarningTheStopLeavesAllTheSame) {
  for (const bool lastCount : {false, true}) {
    TypeParam bench;
    bench.run();
    bench.messenger->answers = {4};
    bench.calls.during("AskUser", [&] {
      bench.view->PrepareToRelease();
      bench.view->Terminate();
      if (lastCount) bench.view = nullptr;
    });
    auto* const view = bench.view.get();
    EXPECT_TRUE(view->LeaveSelectedView());
    EXPECT_THAT(bench.calls.take(), ElementsAre(kExitWarning, Truly(TypeParam::isStop)));
    EXPECT_THAT(bench.messenger->reports, IsEmpty());
  }
}

TYPED_TEST(DiagnosticsViewTest, LeavingGoesByTheFrameInFront) {
  TypeParam bench;
  bench.run();
  bench.view->SetSelectedView("unknown");
  EXPECT_EQ(bench.view->GetSelectedView(), "");
  bench.messenger->answers = {5};
  EXPECT_FALSE(bench.view->LeaveSelectedView()) << "the test is still what the user sees";
  EXPECT_THAT(bench.calls.take(), ElementsAre(kExitWarning));
  bench.view->SetSelectedView("deviceStatus");
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_THAT(bench.calls.take(), IsEmpty());
}

TYPED_TEST(DiagnosticsViewTest, AStartWhoseStateCannotBeReadIsNone) {
  TypeParam bench;
  bench.begin(TypeParam::data());
  bench.drive("12");
  bench.calls.take();
  bench.probe.calls.fail("cmdLoopTest.Tag?");
  bench.start().click();
  EXPECT_THAT(bench.calls.take(), IsEmpty()) << "without the question nothing starts";
  EXPECT_THAT(bench.messenger->reports, ElementsAre(std::string(TypeParam::kReports) + "cmdLoopTest_Click: 440"));
}

TYPED_TEST(DiagnosticsViewTest, MayBeReleasedInsideAnyCall) {
  for (const char* call : {"AskUser", "SendRequest", "SendRequestWithStatus", "NotifyStatus", "ShowMessage", "GetText", "GetTextTable",
                           "GetUserLevel", "SetParameterStatus", "SetProgress", "FocusOut", "GetLabel"}) {
    SCOPED_TRACE(call);
    TypeParam bench;
    const auto pin = bench.view;
    bench.begin(TypeParam::data());
    bench.calls.during(call, [&] {
      pin->PrepareToRelease();
      pin->Terminate();
    });
    bench.day();
    bench.calls.during(call, [] {});
  }
}

}  // namespace
}  // namespace ostrand::test
