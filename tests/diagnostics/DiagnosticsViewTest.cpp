// What both diagnostics views must stand: a host or a control that fails, whichever it is, and a release in the middle.

#include "diagnostics/DiagnosticsBench.h"

namespace ostrand::test {
namespace {

using testing::AnyOf;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

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
