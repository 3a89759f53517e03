#include "diagnostics/VwDiagnostics.h"

#include "bus/BusChoice.h"
#include "bus/BusProcedure.h"
#include "core/modTools.h"
#include "diagnostics/LoopTest.h"
#include "platform/controls/StatusWords.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Query.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

using modView::TabPosition;

namespace {

// The status tree knows this bit by another name, whatever the bus calls it.
constexpr const char* kBitOfBus = "statusHARTPVOutOfLimits";
constexpr const char* kBitOfTree = "statusConsistencyOutOfLimits";

std::string textOf(Messenger& messenger, const std::string& key) {
  const Ref<ITextTable> texts = messenger.GetTextTable();
  if (!texts) throwNothingThere("the text table");
  return texts->GetText(key);
}

}  // namespace

// clang-format off
void VwDiagnostics::declare(Form& form) {
  form.frame(frmViews.next(), "deviceStatus").title(lblTitle.next(), "statusTree").stamp(ctrDateLabels.at(1), "date_deviceStatus")
      .panel(CtrStatus1, "deviceStatus");
  form.frame(frmViews.next(), "loopTest").title(lblTitle.next(), "loopTest").stamp(ctrDateLabels.at(0), "date_loopTest")
      .row(lblLoopTest, "loopTestValue", cteLoopTest, "ctr_loopTestValue")
      .button(cmdLoopTest,     "startTest", "Test")
      .button(cmdStopLoopTest, "stop",      "Stop Test");
  form.frame(frmViews.next(), "eventLog").title(lblTitle.next(), "eventLog").stamp(ctrDateLabels.at(2), "date_eventLog")
      .table(lsvEventLog.at(0), "eventLogError",   {{"eventLogErrorEvent ",   6000}, {"count", 3000, ListView::Content::Number}}, 3)
      .table(lsvEventLog.at(1), "eventLogWarning", {{"eventLogWarningEvent ", 6000}, {"count", 3000, ListView::Content::Number}}, 3)
      .table(lsvEventLog.at(2), "eventLogInfo",    {{"eventLogInfoEvent ",    6000}, {"count", 3000, ListView::Content::Number}}, 3);
  form.frame(frmViews.next(), "resetingEventLog").title(lblTitle.next(), "resetingEventLog")
      .row(chkReset.at(0), "resetErrorEventLog")
      .row(chkReset.at(1), "resetWarningEventLog")
      .row(chkReset.at(3), "resetInfoEventLog")
      .button(cmdReset, "reset", "Reset");

  mFocusOn = {{"deviceStatus", &CtrStatus1}, {"loopTest", &cteLoopTest}, {"resetingEventLog", &chkReset(0)}};
}
// clang-format on

void VwDiagnostics::connect() {
  DiagnosticsView::connect();
  cmdReset.Click.connect([this] { cmdReset_Click(); });
  cteLoopTest.LostFocus.connect([this] { leaveByTab("cteLoopTest_LostFocus", TabPosition::First); });
  cmdReset.LostFocus.connect([this] { leaveByTab("cmdReset_LostFocus", TabPosition::Last); });
  chkReset.each([this](int, CheckBox& box) { box.Click.connect([this] { chkReset_Click(); }); });
  chkReset(0).LostFocus.connect([this] { leaveByTab("chkReset_LostFocus", TabPosition::First); });
}

// --- life

void VwDiagnostics::initialize() {
  DiagnosticsView::initialize();
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cmdReset.Enabled(false); });
  proc.step([&] { cteLoopTest.SetTextOption(true); });
  // A test value leaves by its button and its question, never with the host's collection.
  proc.step([&] { cteLoopTest.KeepLocal(true); });
  mGroupStates.fill(SyncWord::kNotRead);
}

void VwDiagnostics::resized() {
  View::resized();
  Procedure proc(*this, "UserControl_Resize");
  lsvEventLog.each([&](int, ListView& list) {
    proc.step([&] { list.ColumnWidth(1, list.Width() * 2 / 3); });
    proc.step([&] { list.ColumnWidth(2, list.Width() - list.ColumnWidth(1)); });
  });
}

void VwDiagnostics::PrepareToRelease() {
  Procedure proc(*this, "ITaviView_PrepareToRelease");
  // First of all: an answer that comes in between changes no document.
  proc.step([&] { mEventLogNodes.clear(); });
  DiagnosticsView::PrepareToRelease();
}

void VwDiagnostics::clear() {
  mEventLogNodes.clear();
  mBus = nullptr;
  DiagnosticsView::clear();
}

// --- documents

void VwDiagnostics::SetImportData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setImportData");
  proc.step([&] { modView::setImportData(*this, doc); });
  proc.step([&] { updateEventLog(proc.pinnedMessenger(), doc, false); });
}

void VwDiagnostics::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  chooseBus(proc, *this, "VwDiagnostics", doc, mBus);
  proc.step([&] { modView::setOfflineData(*this, doc); });
  // The table keeps the nodes of the first data set.
  proc.step([&] {
    if (!mEventLogNodes.isBuilt()) mEventLogNodes.build(doc);
  });
  proc.step([&] { updateEventLog(proc.pinnedMessenger(), doc, false); });
}

void VwDiagnostics::SetErrorData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setErrorData");
  const std::string name = proc.value(std::string(), [&] { return std::string(responseAnywhere(doc).attribute("name")); });
  if (name == "deviceStatus")
    statusFailed(proc, doc);
  else
    proc.step([&] { modView::setErrorData(*this, doc); });
}

void VwDiagnostics::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  const Node answer = proc.value(Node(), [&] { return responseAnywhere(doc); });
  if (!answer) return;
  const std::string name = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  if (name == "loopTest") loopTestAnswered(proc, doc);
  if (name == "deviceStatus") deviceStatusAnswered(proc, doc);
  if (name == "eventLog") eventLogAnswered(proc, doc, answer);
}

void VwDiagnostics::loopTestAnswered(Procedure& proc, const Document& doc) {
  double value = 1.0;  // the test goes on until the device says otherwise
  const bool read = proc.step([&] {
    if (!itemAnywhere(doc, "loopTestValue")) return;
    const Node text = doc.select("//comm:floatVal");
    if (!text) throwNothingThere("the value of the loop test");
    value = modTools::ToLocalNumber(text.text(), desktop().locale());
  });
  if (!read || !LoopTest::outputIsFree(value)) return;
  proc.step([&] { proc.messenger().ShowMessage("loopTest", "loopTestDone"); });
  toIdle(proc);
}

void VwDiagnostics::deviceStatusAnswered(Procedure& proc, const Document& doc) {
  proc.step([&] {
    const Node bit = itemAnywhere(doc, kBitOfBus);
    if (!bit) return;
    const Node copy = bit.clone();
    copy.setAttribute("name", kBitOfTree);
    bit.parent().insertBefore(copy, bit);
  });
  constexpr int kStamp = 1;
  statusAnswered(proc, doc, kStamp);
}

void VwDiagnostics::eventLogAnswered(Procedure& proc, const Document& doc, const Node& response) {
  proc.step([&] { updateEventLog(proc.pinnedMessenger(), doc, true); });
  if (!proc.value(false, [&] { return response.attribute("isFinal") == "1"; })) return;
  ctrDateLabels.each([&](int, CtrDateLabel& label) {
    proc.step([&] {
      if (label.Tag() == "date_eventLog") label.Caption(modTools::presentDateAndTime(desktop()));
    });
  });
  modView::forwardSyncChanges("eventLog", true, mGroupStates[kEventLogFrame], proc.pinnedMessenger());
}

// --- event logs

void VwDiagnostics::updateEventLog(const Ref<Messenger>& messenger, const Document& doc, bool online) {
  Procedure proc(messenger, lastError(), "VwDiagnostics updateEventLog");
  proc.all([&] {
    const char* const path = online ? "//comm:item[starts-with(@name, \"eventLog\")]" : "//data:parameter[starts-with(@name, \"eventLog\")]";
    for (const Node& node : doc.selectAll(path)) {
      const auto cell = EventLogTable::cellOf(node.attribute("name"));
      if (!cell) continue;
      const Node first = node.firstChild();
      const std::string value = first ? first.text() : std::string(node.attribute("value"));
      mEventLogNodes.write(*cell, value);
      const std::string eventText = cell->kind == 0 && !value.empty() ? textOf(proc.messenger(), value) : std::string();
      const std::string countText = cell->kind == 1 ? value : std::string();
      if (!eventText.empty() || !countText.empty()) AddEventLogEvent(messenger, lsvEventLog(cell->category), cell->row, eventText, countText);
    }
  });
}

void VwDiagnostics::AddEventLogEvent(const Ref<Messenger>& messenger, ListView& list, int row, const std::string& eventText,
                                     const std::string& countText) {
  Procedure proc(messenger, lastError(), "VwDiagnostics AddEventLogEvent");
  proc.step([&] {
    if (list.Count() == 0)
      for (int i = 0; i < EventLogTable::kRows; ++i) list.AddRow();
  });
  proc.step([&] {
    if (row > list.Count()) return;
    if (!eventText.empty()) list.Cell(row, 1, eventText);
    if (!countText.empty()) list.Cell(row, 2, countText);
  });
}

// --- loop test

void VwDiagnostics::cmdLoopTest_Click() {
  Procedure proc(*this, "cmdLoopTest_Click");
  bool empty = true;
  if (!proc.step([&] { empty = cteLoopTest.Text().empty(); })) return;
  if (empty) {
    proc.step([&] { proc.messenger().ShowMessage("informationError", "pleaseCheckTheValues"); });
    return;
  }
  if (!confirmsTest(proc)) return;
  const std::string item = proc.value(std::string(), [&] { return cteLoopTest.GetXmlItem().xml(); });
  proc.step([&] { proc.messenger().SendRequest(LoopTest::outputRequest(item), "loopTest"); });
  proc.step([&] {
    if (const Ref<INotifyStatus> status = query<INotifyStatus>(parent().get())) status->NotifyStatus("testing", 0, 0);
  });
  toRunning(proc);
}

void VwDiagnostics::stopLoopTest(Procedure& proc) {
  // An edit that does not take the 0 would tell the value that drives the output: its item stays out of a stop.
  const bool isZero = proc.step([&] { cteLoopTest.Text("0"); });
  const std::string item = isZero ? proc.value(std::string(), [&] { return cteLoopTest.GetXmlItem().xml(); }) : std::string();
  proc.step([&] { cteLoopTest.Text(""); });
  // The buttons change when the device answers 0, and not before.
  proc.step([&] { proc.messenger().SendRequest(LoopTest::outputRequest(item), "loopTest"); });
}

// --- reset

void VwDiagnostics::chkReset_Click() {
  Procedure proc(*this, "chkReset_Click");
  proc.step([&] {
    bool any = false;
    chkReset.each([&](int, const CheckBox& box) { any = any || box.Value(); });
    cmdReset.Enabled(any);
  });
}

void VwDiagnostics::cmdReset_Click() {
  BusProcedure proc(*this, "cmdReset_Click", mBus);
  bool ok = true;
  for (int i = 0; i < chkReset.size() && ok; ++i) {
    if (!chkReset.has(i)) continue;
    proc.step([&] {
      if (!chkReset(i).Value()) return;
      ok = proc.value(false, [&] { return proc.bus()->ResetEventLog(proc.pinnedMessenger(), chkReset(i).Tag()); });
    });
  }
}

}  // namespace ostrand
