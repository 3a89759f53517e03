// What the data sets and the text tables of the mills rely on: the index, the tag and the label key of every control.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "diagnostics/VwDiagnostics.h"
#include "diagnostics/VwDiagnosticsQX5.h"
#include "platform/controls/ListView.h"
#include "platform/desktop/VirtualDesktop.h"
#include "views/VwInformationGYREP.h"
#include "views/VwInformationH.h"
#include "views/VwInformationP.h"
#include "views/VwInformationP2.h"
#include "views/VwInformationQX5.h"
#include "views/VwOperation.h"

namespace ostrand {
namespace {

using Kind = Control::Kind;

bool isPartOfTheLayout(const Control& control) { return control.kind() == Kind::PictureBox || control.kind() == Kind::NoData; }

// One line for each control but its label: name, tag and, behind "<", the keys of the labels that stand before it.
std::vector<std::string> table(Component& view) {
  std::vector<std::string> lines;
  std::string labels;
  const auto flush = [&] {
    if (!labels.empty()) lines.push_back("labels" + labels);
    labels.clear();
  };
  for (const Control* const control : view.controls()) {
    if (control->kind() == Kind::Label) {
      labels += " " + control->Tag();
      continue;
    }
    if (isPartOfTheLayout(*control)) continue;
    if (control->kind() == Kind::Frame || control->kind() == Kind::DateLabel) flush();
    lines.push_back(control->name() + " " + control->Tag() + (labels.empty() ? "" : " <" + labels));
    labels.clear();
    if (const auto* const list = dynamic_cast<const ListView*>(control))
      for (int column = 1; column <= list->ColumnCount(); ++column) lines.back() += " |" + list->HeaderTag(column) + "|";
  }
  flush();
  return lines;
}

// The heading of a frame stands before its stamp.
std::vector<std::string> frame(int index, const std::string& key, const std::string& heading, const std::string& stamp) {
  return {"frmViews(" + std::to_string(index) + ") " + key, "labels " + heading, "ctrDateLabels(" + std::to_string(index) + ") date_" + stamp};
}

std::vector<std::string> operator+(std::vector<std::string> all, const std::vector<std::string>& more) {
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

// Rows "name(first)", "name(first + 1)", ... each bound to a parameter, with a label of the parameter's name.
std::vector<std::string> rows(const std::string& array, int first, const std::vector<std::string>& parameters) {
  std::vector<std::string> lines;
  for (const std::string& parameter : parameters) {
    const std::size_t at = parameter.find('<');  // "parameter<label"
    const std::string name = parameter.substr(0, at), label = at == parameter.npos ? name : parameter.substr(at + 1);
    lines.push_back(array + "(" + std::to_string(first++) + ") ctr_" + name + " < " + label);
  }
  return lines;
}

std::string row(const std::string& control, const std::string& parameter, const std::string& label = {}) {
  return control + " ctr_" + parameter + " < " + (label.empty() ? parameter : label);
}

using Table = std::vector<std::string>;

const std::map<std::string, Table>& tables() {
  static const Table identification = frame(0, "identification", "identification", "identification");
  static const Table transmitter = frame(1, "transmitter", "transmitter", "transmitter");
  static const Table profibus = Table{row("cteTransmitter(0)", "manufacturer"), row("cce_transmitter(0)", "deviceType")} +
                                rows("cteTransmitter", 1,
                                     {"sensorSerialNumber", "fbiHardwareRevision", "fbiSoftwareRevision", "swRevision", "hwRevision",
                                      "profileRevision", "deviceCertification"});
  static const Table hart =
      Table{row("cteTransmitter(0)", "manufacturer"), row("cceTransmitter", "deviceType")} +
      rows("cteTransmitter", 1,
           {"sensorSerialNumber", "universalCmdRevision<universalCommandRevision", "transmitterCommandRevision", "swRevision", "hwRevision"});
  static const std::map<std::string, Table> all{
      {"VwInformationP", identification + rows("cteIdentification", 0, {"tag", "description", "message"}) + Table{row("CtrDateEdit1", "deviceDate")} +
                             transmitter + profibus},
      {"VwInformationH", identification + rows("cteIdentification", 0, {"tag", "description", "message"}) +
                             Table{row("CtrDateEdit1", "deviceDate", "date")} + transmitter + hart +
                             rows("cteTransmitter", 6, {"deviceCode", "finalAssemblyNumber"})},
      {"VwInformationP2", identification + rows("cteIdentification", 0, {"sensorTag", "displayTag", "description", "message"}) +
                              Table{row("CtrDateEdit1", "deviceDate")} + transmitter + profibus +
                              rows("cteTransmitter", 8, {"fbiBoardSerialNumber"})},
      {"VwInformationQX5", identification + rows("cteIdentification", 0, {"tag", "description", "message"}) +
                               Table{row("CtrDateEdit1", "deviceDate", "date"), row("cteIdentification(3)", "longTag")} + transmitter + hart +
                               rows("cteTransmitter", 6, {"finalAssemblyNumber"})},
      {"VwInformationGYREP",
       identification + rows("cteIdentification", 0, {"sensorTag", "displayTag", "description", "message"}) +
           Table{row("cdeIdentification", "deviceDate")} + transmitter + rows("cceTransmitter", 0, {"manufacturer", "deviceType"}) +
           rows(
               "cteTransmitter", 0,
               {"deviceCode", "finalAssemblyNumber", "sensorSerialNumber", "sensorHWRevision", "sensorSWRevision", "tcuSerialNumber", "tcuHWRevision",
                "tcuSWRevision", "fbiBoardSerialNumber", "fbiHardwareRevision", "fbiSoftwareRevision", "profileRevision", "deviceCertification"})},
      {"VwOperation",
       frame(0, "simulation", "simulation", "simulation") +
           Table{row("cceSimulation(2)", "simulation"), row("cteSimulation(0)", "simulationValue"), row("cceSimulation(3)", "simulationQuality"),
                 row("cceSimulation(4)", "simulationLimit"), row("cceSimulation(0)", "targetMode"), row("cceSimulation(1)", "actualMode"),
                 "frmViews(1) ", "Frame2 moduleSelection", "labels moduleSelection", "ctrDateLabels(1) date_moduleSelection",
                 "CtrModuleSelection1 moduleSelection"}},
      {"VwDiagnostics", Table{"frmViews(0) deviceStatus",
                              "labels statusTree",
                              "ctrDateLabels(1) date_deviceStatus",
                              "CtrStatus1 deviceStatus",
                              "frmViews(1) loopTest",
                              "labels loopTest",
                              "ctrDateLabels(0) date_loopTest",
                              "cteLoopTest ctr_loopTestValue < loopTestValue",
                              "cmdLoopTest startTest",
                              "cmdStopLoopTest stop",
                              "frmViews(2) eventLog",
                              "labels eventLog",
                              "ctrDateLabels(2) date_eventLog",
                              "lsvEventLog(0) eventLogError |eventLogErrorEvent | |count|",
                              "lsvEventLog(1) eventLogWarning |eventLogWarningEvent | |count|",
                              "lsvEventLog(2) eventLogInfo |eventLogInfoEvent | |count|",
                              "frmViews(3) resetingEventLog",
                              "chkReset(0) resetErrorEventLog < resetingEventLog",
                              "chkReset(1) resetWarningEventLog",
                              "chkReset(3) resetInfoEventLog",
                              "cmdReset reset"}},
      {"VwDiagnosticsQX5",
       frame(0, "loopTest", "loopTest", "loopTest") +
           Table{"cteLoopTest(0) ctr_channel0LoopTestValue < channel loopTestValue consistency", "cteLoopTest(1) ctr_channel1LoopTestValue < ash",
                 "cteLoopTest(2) ctr_channel2LoopTestValue < floc", "cteLoopTest(3) ctr_channel3LoopTestValue < ashPercent",
                 "cteLoopTest(4) ctr_channel4LoopTestValue < totalRetention", "cteLoopTest(5) ctr_channel5LoopTestValue < fillerRetention",
                 "cmdLoopTest startTest < channelVariable", "cmdStopLoopTest stop"} +
           frame(1, "sensorLimits", "sensorLimits", "sensorLimits") +
           Table{"cteSensorLimits(0) ctr_limitWaterDLedLow < limitLow limitHigh limitWaterDLedLabel", "cteSensorLimits(1) ctr_limitWaterDLedHigh",
                 "cteSensorLimits(2) ctr_limitWaterALedLow < limitWaterALedLabel", "cteSensorLimits(3) ctr_limitWaterALedHigh",
                 "cteSensorLimits(4) ctr_limitWaterSLedLow < limitWaterSLedLabel", "cteSensorLimits(5) ctr_limitWaterSLedHigh",
                 "cteSensorLimits(6) ctr_limitWaterALaserLow < limitWaterALaserLabel", "cteSensorLimits(7) ctr_limitWaterALaserHigh",
                 "cteSensorLimits(8) ctr_limitWaterSLaserLow < limitWaterSLaserLabel", "cteSensorLimits(9) ctr_limitWaterSLaserHigh"} +
           frame(2, "waterValues", "waterValues", "waterValues") +
           Table{"cteWaterValues(8) ctr_waterDLedV < waterVLabel waterFiltLabel ", "cteWaterValues(9) ctr_waterDLedFilt",
                 "cteWaterValues(0) ctr_waterALedV < ", "cteWaterValues(4) ctr_waterALedFilt", "cteWaterValues(1) ctr_waterSLedV < ",
                 "cteWaterValues(5) ctr_waterSLedFilt", "cteWaterValues(2) ctr_waterALaserV < ", "cteWaterValues(6) ctr_waterALaserFilt",
                 "cteWaterValues(3) ctr_waterSLaserV < ", "cteWaterValues(7) ctr_waterSLaserFilt"} +
           Table{"frmViews(3) deviceStatus", "labels statusTree", "ctrDateLabels(3) date_deviceStatus", "CtrStatus1 deviceStatus"}},
  };
  return all;
}

template <class T>
void expectTable(const std::string& name) {
  VirtualDesktop desktop;
  const Ref<Component> view(new T);
  view->Place(desktop, nullptr, "");
  EXPECT_THAT(table(*view), testing::ElementsAreArray(tables().at(name)));
  view->Terminate();
}

TEST(ControlTablesTest, VwInformationP) { expectTable<VwInformationP>("VwInformationP"); }
TEST(ControlTablesTest, VwInformationH) { expectTable<VwInformationH>("VwInformationH"); }
TEST(ControlTablesTest, VwInformationP2) { expectTable<VwInformationP2>("VwInformationP2"); }
TEST(ControlTablesTest, VwInformationQX5) { expectTable<VwInformationQX5>("VwInformationQX5"); }
TEST(ControlTablesTest, VwInformationGYREP) { expectTable<VwInformationGYREP>("VwInformationGYREP"); }
TEST(ControlTablesTest, VwOperation) { expectTable<VwOperation>("VwOperation"); }
TEST(ControlTablesTest, VwDiagnostics) { expectTable<VwDiagnostics>("VwDiagnostics"); }
TEST(ControlTablesTest, VwDiagnosticsQX5) { expectTable<VwDiagnosticsQX5>("VwDiagnosticsQX5"); }

}  // namespace
}  // namespace ostrand
