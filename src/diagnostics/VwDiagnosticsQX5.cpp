#include "diagnostics/VwDiagnosticsQX5.h"

#include "core/Requests.h"
#include "core/modTools.h"
#include "platform/base/Procedure.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

using modView::TabPosition;

namespace {

constexpr int kGoOn = 4;  // of AskUser
constexpr int kStop = 5;
constexpr double kStopped = 0.1;  // channel values arrive as floats: up to here a channel has stopped

constexpr const char* kSensors[] = {"DLed", "ALed", "SLed", "ALaser", "SLaser"};

void callStatus(Control& status, const char* operation, const Document& doc, void (ITaviDataUser::*member)(const Document&)) {
  modView::callObject(status, status.dataUser(), operation, " document", [&](ITaviDataUser& user) { (user.*member)(doc); });
}

}  // namespace

// clang-format off
void VwDiagnosticsQX5::declare(Form& form) {
  FrameForm loopTest = frame(form, "loopTest", "date_loopTest");
  loopTest.heads({{&lblLoopTest.at(0), "channel"}, {&lblLoopTest.at(1), "loopTestValue"}});
  int label = 2;
  for (const char* channel : {"consistency", "ash", "floc", "ashPercent", "totalRetention", "fillerRetention"})  {
    const int index = label - 2;
    loopTest.row(lblLoopTest.at(label++), channel, cteLoopTest.at(index), "ctr_channel" + std::to_string(index) + "LoopTestValue");
  }
  loopTest.hidden(lblLoopTest.at(label), "channelVariable")
      .button(cmdLoopTest,     "startTest", "Test")
      .button(cmdStopLoopTest, "stop",      "Stop Test");

  FrameForm limits = frame(form, "sensorLimits", "date_sensorLimits");
  limits.heads({{&lblAlarmMinor.at(0), "limitLow"}, {&lblAlarmMinor.at(1), "limitHigh"}});
  for (const char* sensor : kSensors) {
    const std::string name = std::string("limitWater") + sensor;
    limits.row(lblSensorLimits.next(), name + "Label", cteSensorLimits.next(), "ctr_" + name + "Low")
        .cell(cteSensorLimits.next(), "ctr_" + name + "High");
  }

  // The indices of the water values follow their age and not the rows.
  FrameForm water = frame(form, "waterValues", "date_waterValues");
  water.heads({{&lblWaterValuesMinor.at(0), "waterVLabel"}, {&lblWaterValuesMinor.at(1), "waterFiltLabel"}});
  constexpr struct { const char* sensor; int voltage; int filtered; } kRows[] = {{"DLed", 8, 9}, {"ALed", 0, 4}, {"SLed", 1, 5}, {"ALaser", 2, 6}, {"SLaser", 3, 7}};
  for (const auto& [sensor, voltage, filtered] : kRows) {
    const std::string name = std::string("water") + sensor;
    water.row(lblWaterValues.next(), sensor, cteWaterValues.at(voltage), "ctr_" + name + "V")
        .cell(cteWaterValues.at(filtered), "ctr_" + name + "Filt");
  }

  form.frame(frmViews.next(), "deviceStatus").title(lblTitle.next(), "statusTree").stamp(ctrDateLabels.next(), "date_deviceStatus")
      .panel(CtrStatus1, "deviceStatus");

  mFocusOn = {{"loopTest", &cteLoopTest(0)}, {"sensorLimits", &cteSensorLimits(0)}, {"waterValues", &cteWaterValues(0)}, {"deviceStatus", &CtrStatus1}};
}
// clang-format on

VwDiagnosticsQX5::VwDiagnosticsQX5() : View("VwDiagnosticsQX5", "diagnostics") {
  cmdLoopTest.Click.connect([this] { cmdLoopTest_Click(); });
  cmdStopLoopTest.Click.connect([this] { cmdStopLoopTest_Click(); });
  cmdStopLoopTest.LostFocus.connect([this] { leaveByTab("cmdStopLoopTest_LostFocus", TabPosition::Last); });
}

// --- life

void VwDiagnosticsQX5::initialize() {
  View::initialize();
  // The status tree stands inside its frame, which is what the host selects.
  std::erase(mViews, &CtrStatus1);
  const auto exit = [this](const ControlArray<CtrTextEdit>& edits, int index, const char* procedure, TabPosition position) {
    edits(index).LostFocus.connect([this, procedure, position] { leaveByTab(procedure, position); });
  };
  exit(cteLoopTest, 0, "cteLoopTest_LostFocus", TabPosition::First);
  exit(cteSensorLimits, 0, "cteSensorLimits_LostFocus", TabPosition::First);
  exit(cteSensorLimits, cteSensorLimits.size() - 1, "cteSensorLimits_LostFocus", TabPosition::Last);
  exit(cteWaterValues, 0, "cteWaterValues_LostFocus", TabPosition::First);
  exit(cteWaterValues, cteWaterValues.size() - 1, "cteWaterValues_LostFocus", TabPosition::Last);

  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cmdStopLoopTest.Enabled(false); });
  cteLoopTest.each([&](int, CtrTextEdit& channel) { proc.step([&] { channel.SetTextOption(true); }); });
}

void VwDiagnosticsQX5::clear() {
  if (CtrStatus1.view()) CtrStatus1->PrepareToRelease();
  View::clear();
}

void VwDiagnosticsQX5::SetMessenger(const Ref<Messenger>& messenger) {
  View::SetMessenger(messenger);
  Procedure proc(*this, "ITaviComponent_SetMessenger");
  enableByLevel(proc, cmdLoopTest);
}

bool VwDiagnosticsQX5::LeaveSelectedView() {
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

// --- documents

void VwDiagnosticsQX5::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  proc.step([&] { modView::setOfflineData(*this, doc); });
  // The channels never show stored values: an old one must not be sent by accident.
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] { channel.Text(""); });
    proc.step([&] { channel.MarkEdited(false); });
  });
}

void VwDiagnosticsQX5::SetErrorData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setErrorData");
  const Node answer = proc.value(Node(), [&] { return responseAnywhere(doc); });
  const std::string name = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  if (name == "deviceStatus") {
    proc.step([&] { callStatus(CtrStatus1, "SetErrorData", doc, &ITaviDataUser::SetErrorData); });
    return;
  }
  proc.step([&] { modView::setErrorData(*this, doc); });
  if (name != "loopTest") return;
  const bool isFinal = proc.value(false, [&] { return answer.attribute("isFinal") == "1"; });
  // No channel has answered: the test never started.
  if (!isFinal || mLoopChannelAnswered) return;
  toIdle(proc);
  proc.step([&] { proc.messenger().SetProgress("", 0, 0); });
}

void VwDiagnosticsQX5::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  const Node answer = proc.value(Node(), [&] { return responseAnywhere(doc); });
  if (!answer) return;
  const std::string name = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  if (name == "deviceStatus") {
    proc.step([&] { callStatus(CtrStatus1, "SetOnlineData", doc, &ITaviDataUser::SetOnlineData); });
    proc.step([&] { ctrDateLabels(ctrDateLabels.size() - 1).Caption(modTools::presentDateAndTime(desktop())); });
  } else if (name == "loopTest") {
    loopTestAnswered(proc, doc, answer);
  } else {
    proc.step([&] { modView::setOnlineData(*this, doc); });
  }
}

void VwDiagnosticsQX5::loopTestAnswered(Procedure& proc, const Document& doc, const Node& response) {
  proc.step([&] {
    const Node text = doc.select("//comm:floatVal");
    if (!text) return;
    const double value = modTools::ToLocalNumber(text.text(), desktop().locale());
    const Node item = doc.select("//comm:item");
    const std::string_view name = item.attribute("name");
    const auto each = [&](auto answered) {
      cteLoopTest.each([&](int, CtrTextEdit& channel) {
        channel.Tag();
        if (channel.parameterName() == name) proc.step([&] { answered(channel); });
      });
    };
    if (value > kStopped) {
      each([&](CtrTextEdit& channel) { channel.SetOnlineData(item); });
      mLoopChannelAnswered = true;
      return;
    }
    each([](CtrTextEdit& channel) {
      channel.Text("");
      channel.Correct(true);
    });
    if (response.attribute("isFinal") != "1") return;
    bool anyLeft = false;
    cteLoopTest.each([&](int, const CtrTextEdit& channel) { anyLeft = anyLeft || !channel.Text().empty(); });
    if (anyLeft) return;
    proc.step([&] { proc.messenger().ShowMessage("loopTest", "loopTestDone"); });
    toIdle(proc);
  });
}

void VwDiagnosticsQX5::toIdle(Procedure& proc) {
  proc.step([&] { cmdStopLoopTest.Enabled(false); });
  setCaption(proc, cmdLoopTest, "startTest");
}

// --- loop test

void VwDiagnosticsQX5::cmdLoopTest_Click() {
  Procedure proc(*this, "cmdLoopTest_Click");
  bool mayStart = true;
  proc.step([&] {
    if (cmdLoopTest.Tag() == "startTest") mayStart = proc.value(kStop, [&] { return proc.messenger().AskUser("loopTest", "loopTestWarning"); }) != kStop;
  });
  if (!mayStart) return;
  std::string items;
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] {
      if (channel.Modified() && channel.ValueIsValid()) items += channel.GetXmlItem().xml();
    });
  });
  if (items.empty()) return;
  mLoopChannelAnswered = false;
  const std::string request = Requests::document("loopTest", "write", items);
  if (!proc.value(false, [&] { return proc.messenger().SendRequestWithStatus(request, "testing", 0, 0); })) return;
  setCaption(proc, cmdLoopTest, "loopTestChangeValue");
  proc.step([&] { cmdStopLoopTest.Enabled(true); });
  proc.step([&] { cmdStopLoopTest.SetFocus(); });
}

void VwDiagnosticsQX5::cmdStopLoopTest_Click() {
  Procedure proc(*this, "cmdStopLoopTest_Click");
  std::string items;
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] {
      const std::string text = channel.Text();
      const bool modified = channel.Modified();
      if (text.empty() && !modified) return;
      // The user's numbers stay in the edits.
      channel.Text("0");
      items += channel.GetXmlItem().xml();
      channel.Text(text);
      if (!text.empty() && modified) channel.Modified(true);
    });
  });
  const std::string request = Requests::document("loopTest", "write", items);
  proc.step([&] { proc.messenger().SendRequestWithStatus(request, "stopping", 3, 0); });
}

}  // namespace ostrand
