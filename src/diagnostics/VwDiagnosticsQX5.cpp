#include "diagnostics/VwDiagnosticsQX5.h"

#include "core/modTools.h"
#include "diagnostics/LoopTest.h"
#include "platform/trap/Procedure.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

using modView::TabPosition;

// clang-format off
void VwDiagnosticsQX5::declare(Form& form) {
  constexpr const char* kSensors[] = {"DLed", "ALed", "SLed", "ALaser", "SLaser"};

  FrameForm loopTest = frame(form, "loopTest", "date_loopTest");
  loopTest.heads(lblLoopTest.at(0), "channel", {{&lblLoopTest.at(1), "loopTestValue"}})
      .caption(lblLoopTest.at(0), "channelIndex").caption(lblLoopTest.at(1), "Loop Test Value");
  int label = 2;
  for (const char* channel : {"consistency", "ash", "floc", "ashPercent", "totalRetention", "fillerRetention"}) {
    const int index = label - 2;
    loopTest.row(lblLoopTest.at(label), channel, cteLoopTest.at(index), "ctr_channel" + std::to_string(index) + "LoopTestValue")
        .caption(lblLoopTest.at(label), channel);
    ++label;
  }
  loopTest.hidden(lblLoopTest.at(label), "channelVariable").caption(lblLoopTest.at(label), "channelVariable")
      .button(cmdLoopTest,     "startTest", "Test")
      .button(cmdStopLoopTest, "stop",      "Stop Test");

  FrameForm limits = frame(form, "sensorLimits", "date_sensorLimits");
  limits.caption(lblTitle.at(1), "Sensor Water Limits")
      .heads({{&lblAlarmMinor.at(0), "limitLow"}, {&lblAlarmMinor.at(1), "limitHigh"}})
      .caption(lblAlarmMinor.at(0), "Low").caption(lblAlarmMinor.at(1), "High");
  for (const char* sensor : kSensors) {
    const std::string name = std::string("limitWater") + sensor;
    Label& row = lblSensorLimits.next();
    limits.row(row, name + "Label", cteSensorLimits.next(), "ctr_" + name + "Low")
        .cell(cteSensorLimits.next(), "ctr_" + name + "High")
        .caption(row, std::string(sensor) + " Water");
  }

  // The indices of the water values follow their age and not the rows. A row is called by its sensor in every language.
  FrameForm water = frame(form, "waterValues", "date_waterValues");
  water.caption(lblTitle.at(2), "Water Values")
      .heads({{&lblWaterValuesMinor.at(0), "waterVLabel"}, {&lblWaterValuesMinor.at(1), "waterFiltLabel"}})
      .caption(lblWaterValuesMinor.at(0), "Voltage").caption(lblWaterValuesMinor.at(1), "Filt");
  constexpr struct { const char* sensor; int voltage; int filtered; } kRows[] = {{"DLed", 8, 9}, {"ALed", 0, 4}, {"SLed", 1, 5}, {"ALaser", 2, 6}, {"SLaser", 3, 7}};
  for (const auto& [sensor, voltage, filtered] : kRows) {
    const std::string name = std::string("water") + sensor;
    Label& row = lblWaterValues.next();
    water.row(row, "", cteWaterValues.at(voltage), "ctr_" + name + "V")
        .cell(cteWaterValues.at(filtered), "ctr_" + name + "Filt")
        .caption(row, sensor);
  }

  form.frame(frmViews.next(), "deviceStatus").title(lblTitle.next(), "statusTree").stamp(ctrDateLabels.next(), "date_deviceStatus")
      .panel(CtrStatus1, "deviceStatus");

  mFocusOn = {{"loopTest", &cteLoopTest(0)}, {"sensorLimits", &cteSensorLimits(0)}, {"waterValues", &cteWaterValues(0)}, {"deviceStatus", &CtrStatus1}};
}
// clang-format on

void VwDiagnosticsQX5::connect() {
  DiagnosticsView::connect();
  const auto exit = [this](const ControlArray<CtrTextEdit>& edits, int index, const char* procedure, TabPosition position) {
    edits(index).LostFocus.connect([this, procedure, position] { leaveByTab(procedure, position); });
  };
  exit(cteLoopTest, 0, "cteLoopTest_LostFocus", TabPosition::First);
  exit(cteSensorLimits, 0, "cteSensorLimits_LostFocus", TabPosition::First);
  exit(cteSensorLimits, cteSensorLimits.size() - 1, "cteSensorLimits_LostFocus", TabPosition::Last);
  exit(cteWaterValues, 0, "cteWaterValues_LostFocus", TabPosition::First);
  exit(cteWaterValues, cteWaterValues.size() - 1, "cteWaterValues_LostFocus", TabPosition::Last);
}

// --- life

void VwDiagnosticsQX5::initialize() {
  DiagnosticsView::initialize();
  Procedure proc(*this, "UserControl_Initialize");
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] { channel.SetTextOption(true); });
    // A test value leaves by its button and its question, never with the host's collection.
    proc.step([&] { channel.KeepLocal(true); });
  });
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
    statusFailed(proc, doc);
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
    statusAnswered(proc, doc, ctrDateLabels.size() - 1);
  } else if (name == "loopTest") {
    loopTestAnswered(proc, doc, answer);
  } else {
    proc.step([&] { modView::setOnlineData(*this, doc); });
  }
}

void VwDiagnosticsQX5::loopTestAnswered(Procedure& proc, const Document& doc, const Node& response) {
  const Node text = proc.value(Node(), [&] { return doc.select("//comm:floatVal"); });
  if (!text) return;
  // What is no number says nothing about the channel.
  double value = 0.0;
  if (!proc.step([&] { value = modTools::ToLocalNumber(text.text(), desktop().locale()); })) return;
  const Node item = proc.value(Node(), [&] { return doc.select("//comm:item"); });
  const std::string name = proc.value(std::string(), [&] { return std::string(item.attribute("name")); });
  const std::vector<CtrTextEdit*> channels = channelsOf(proc, name);
  if (!LoopTest::channelIsFree(value)) {
    for (CtrTextEdit* const channel : channels) {
      proc.step([&] { channel->SetOnlineData(item); });
      mLoopChannelAnswered = true;
    }
    return;
  }
  for (CtrTextEdit* const channel : channels) {
    proc.step([&] { channel->Text(""); });
    proc.step([&] { channel->Correct(true); });
  }
  if (!proc.value(false, [&] { return response.attribute("isFinal") == "1"; })) return;
  bool anyLeft = false;
  cteLoopTest.each([&](int, const CtrTextEdit& channel) { proc.step([&] { anyLeft = anyLeft || !channel.Text().empty(); }); });
  if (anyLeft) return;
  proc.step([&] { proc.messenger().ShowMessage("loopTest", "loopTestDone"); });
  toIdle(proc);
}

std::vector<CtrTextEdit*> VwDiagnosticsQX5::channelsOf(Procedure& proc, const std::string& item) const {
  std::vector<CtrTextEdit*> channels;
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] {
      if (channel.Tag() == "ctr_" + item) channels.push_back(&channel);
    });
  });
  return channels;
}

// --- loop test

void VwDiagnosticsQX5::cmdLoopTest_Click() {
  Procedure proc(*this, "cmdLoopTest_Click");
  if (!confirmsTest(proc)) return;
  std::string items;
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    proc.step([&] {
      if (channel.Modified() && channel.ValueIsValid()) items += channel.GetXmlItem().xml();
    });
  });
  if (items.empty()) return;
  mLoopChannelAnswered = false;
  const std::string request = LoopTest::channelsRequest(items);
  if (!proc.value(false, [&] { return proc.messenger().SendRequestWithStatus(request, "testing", 0, 0); })) return;
  toRunning(proc);
}

void VwDiagnosticsQX5::stopLoopTest(Procedure& proc) {
  std::string items;
  cteLoopTest.each([&](int, CtrTextEdit& channel) {
    const std::string text = proc.value(std::string(), [&] { return channel.Text(); });
    const bool modified = proc.value(false, [&] { return channel.Modified(); });
    if (text.empty() && !modified) return;
    // The user's numbers stay in the edits. One that does not take the 0 would tell the value that drives its channel.
    if (proc.step([&] { channel.Text("0"); })) proc.step([&] { items += channel.GetXmlItem().xml(); });
    proc.step([&] { channel.Text(text); });
    if (!text.empty() && modified) proc.step([&] { channel.Modified(true); });
  });
  const std::string request = LoopTest::channelsRequest(items);
  proc.step([&] { proc.messenger().SendRequestWithStatus(request, "stopping", 3, 0); });
}

}  // namespace ostrand
