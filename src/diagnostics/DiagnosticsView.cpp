#include "diagnostics/DiagnosticsView.h"

#include "core/modTools.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

using modView::TabPosition;

namespace {

constexpr int kGoOn = 4;  // of AskUser
constexpr int kStop = 5;

void callStatus(Control& status, const char* operation, const Document& doc, void (ITaviDataUser::*member)(const Document&)) {
  modView::callObject(status, status.dataUser(), operation, " document", [&](ITaviDataUser& user) { (user.*member)(doc); });
}

}  // namespace

DiagnosticsView::DiagnosticsView(std::string_view objectName) : View(objectName, "diagnostics") {
  cmdLoopTest.Click.connect([this] { cmdLoopTest_Click(); });
  cmdStopLoopTest.Click.connect([this] { cmdStopLoopTest_Click(); });
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
  proc.step([&] {
    modView::callObject(CtrStatus1, CtrStatus1.view(), "PrepareToRelease", "", [](ITaviView& status) { status.PrepareToRelease(); });
  });
  proc.step([&] { clear(); });
}

void DiagnosticsView::SetMessenger(const Ref<Messenger>& messenger) {
  View::SetMessenger(messenger);
  Procedure proc(*this, "ITaviComponent_SetMessenger");
  enableByLevel(proc, cmdLoopTest);
}

bool DiagnosticsView::LeaveSelectedView() {
  Procedure proc(*this, "ITaviView_LeaveSelectedView");
  bool mayLeave = true;
  proc.step([&] {
    if (!cmdStopLoopTest.Enabled() || mSelectedView != "loopTest") return;
    mayLeave = proc.value(0, [&] { return proc.messenger().AskUser("loopTest", "loopTestExitWarning"); }) == kGoOn;
    if (mayLeave)
      cmdStopLoopTest_Click();
    else
      cmdLoopTest.SetFocus();
  });
  return mayLeave;
}

// --- loop test

bool DiagnosticsView::confirmsTest(Procedure& proc) {
  bool confirms = true;
  proc.step([&] {
    if (cmdLoopTest.Tag() == "startTest") confirms = proc.value(kStop, [&] { return proc.messenger().AskUser("loopTest", "loopTestWarning"); }) != kStop;
  });
  return confirms;
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

void DiagnosticsView::statusAnswered(Procedure& proc, const Document& doc, CtrDateLabel& stamp) {
  proc.step([&] { callStatus(CtrStatus1, "SetOnlineData", doc, &ITaviDataUser::SetOnlineData); });
  proc.step([&] { stamp.Caption(modTools::presentDateAndTime(desktop())); });
}

void DiagnosticsView::statusFailed(Procedure& proc, const Document& doc) {
  proc.step([&] { callStatus(CtrStatus1, "SetErrorData", doc, &ITaviDataUser::SetErrorData); });
}

}  // namespace ostrand
