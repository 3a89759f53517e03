#pragma once

#include <string>
#include <vector>

#include "diagnostics/DiagnosticsView.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// The optical transmitter: a loop test that drives up to six channels at once, each with its own value; the
// sensors' limits and water values; the status tree.
class VwDiagnosticsQX5 : public DiagnosticsView {
 public:
  VwDiagnosticsQX5() : DiagnosticsView("VwDiagnosticsQX5") {}

  void SetErrorData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void initialize() override;
  void cmdLoopTest_Click() override;
  void stopLoopTest(Procedure& proc) override;

 private:
  void loopTestAnswered(Procedure& proc, const Document& doc, const Node& response);
  std::vector<CtrTextEdit*> channelsOf(Procedure& proc, const std::string& item) const;

  ControlArray<CtrTextEdit> cteLoopTest{"cteLoopTest"};
  ControlArray<Label> lblLoopTest{"lblLoopTest"};
  ControlArray<CtrTextEdit> cteSensorLimits{"cteSensorLimits"};
  ControlArray<Label> lblSensorLimits{"lblSensorLimits"};
  ControlArray<Label> lblAlarmMinor{"lblAlarmMinor"};
  ControlArray<CtrTextEdit> cteWaterValues{"cteWaterValues"};
  ControlArray<Label> lblWaterValues{"lblWaterValues"};
  ControlArray<Label> lblWaterValuesMinor{"lblWaterValuesMinor"};

  bool mLoopChannelAnswered = false;  // a channel has answered this test with a running value
};

}  // namespace ostrand
