#include "diagnostics/DiagnosticsView.h"

#include "core/HostNumbers.h"
#include "core/modTools.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

using modView::TabPosition;

namespace {

constexpr const char* kStopClick = "cmdStopLoopTest_Click";

void callStatus(Control& status, const char* operation, const Document& doc, void (ITaviDataUser::*member)(const Document&)) {
  modView::callObject(status, status.dataUser(), operation, " document", [&](ITaviDataUser& user) { (user.*member)(doc); });
}

}  // namespace

DiagnosticsView::DiagnosticsView(std::string_view objectName) : View(objectName, "diagnostics") {}

void DiagnosticsView::connect() {
  cmdLoopTest.Click.connect([this] { cmdLoopTest_Click(); });
  cmdStopLoopTest.Click.connect([this] {
    Procedure proc(*this, kStopClick);
    stopLoopTest(proc);
  });
  cmdStopLoopTest.LostFocus.connect([this] { leaveByTab("cmdStopLoopTest_LostFocus", TabPosition::Last); });
}

void DiagnosticsView::initialize() {
  View::initialize();
  // The status tree stands inside its frame, which is what the host selects.
  std::erase(mViews, &CtrStatus1);
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cmdStopLoopTest.Enabled(false); });
}

void DiagnosticsView::PrepareToRelease() {
  Procedure proc(*this, "ITaviView_PrepareToRelease");
  proc.step(
      [&] { modView::callObject(CtrStatus1, CtrStatus1.view(), "PrepareToRelease", "", [](ITaviView& status) { status.PrepareToRelease(); }); });
  proc.step([&] { clear(); });
}

bool DiagnosticsView::LeaveSelectedView() {
  Procedure proc(*this, "ITaviView_LeaveSelectedView");
  bool mayLeave = true;
  proc.step([&] {
    if (!cmdStopLoopTest.Enabled() || !isInFront("loopTest")) return;
    mayLeave = proc.value(Answer::kNone, [&] { return proc.messenger().AskUser("loopTest", "loopTestExitWarning"); }) == Answer::kGoOn;
    if (!mayLeave) return cmdLoopTest.SetFocus();
    // Also when the view was released meanwhile: the stop leaves by the messenger that this entry holds.
    Procedure click(*this, kStopClick, proc.pinnedMessenger());
    stopLoopTest(click);
  });
  return mayLeave;
}

// --- loop test

bool DiagnosticsView::confirmsTest(Procedure& proc) {
  bool confirms = false;
  proc.step([&] {
    confirms = cmdLoopTest.Tag() != "startTest" ||
               proc.value(Answer::kStop, [&] { return proc.messenger().AskUser("loopTest", "loopTestWarning"); }) != Answer::kStop;
  });
  return confirms && !isReleased(proc);
}

void DiagnosticsView::toRunning(Procedure& proc) {
  setCaption(proc, cmdLoopTest, "loopTestChangeValue");
  proc.step([&] { cmdStopLoopTest.Enabled(true); });
  proc.step([&] { cmdStopLoopTest.SetFocus(); });
}

void DiagnosticsView::toIdle(Procedure& proc) {
  proc.step([&] { cmdStopLoopTest.Enabled(false); });
  setCaption(proc, cmdLoopTest, "startTest");
}

// --- status tree

void DiagnosticsView::statusAnswered(Procedure& proc, const Document& doc, int stamp) {
  proc.step([&] { callStatus(CtrStatus1, "SetOnlineData", doc, &ITaviDataUser::SetOnlineData); });
  proc.step([&] { ctrDateLabels(stamp).Caption(modTools::presentDateAndTime(desktop())); });
}

void DiagnosticsView::statusFailed(Procedure& proc, const Document& doc) {
  proc.step([&] { callStatus(CtrStatus1, "SetErrorData", doc, &ITaviDataUser::SetErrorData); });
}

}  // namespace ostrand
