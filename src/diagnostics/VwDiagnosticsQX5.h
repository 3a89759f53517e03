#pragma once

#include <string>

#include "core/View.h"
#include "platform/controls/CtrStatus.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// The optical transmitter: a loop test that drives up to six channels at once, each with its own value; the
// sensors' limits and water values; the status tree.
class VwDiagnosticsQX5 : public View {
 public:
  VwDiagnosticsQX5();

  bool LeaveSelectedView() override;
  void SetMessenger(const Ref<Messenger>& messenger) override;
  void SetErrorData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void initialize() override;
  void clear() override;

 private:
  static constexpr int kChannels = 6;

  void cmdLoopTest_Click();
  void cmdStopLoopTest_Click();
  void loopTestAnswered(Procedure& proc, const Document& doc, const Node& response);
  void toIdle(Procedure& proc);

  CommandButton cmdLoopTest{"cmdLoopTest"};
  CommandButton cmdStopLoopTest{"cmdStopLoopTest"};
  ControlArray<CtrTextEdit> cteLoopTest{"cteLoopTest"};
  ControlArray<Label> lblLoopTest{"lblLoopTest"};
  ControlArray<CtrTextEdit> cteSensorLimits{"cteSensorLimits"};
  ControlArray<Label> lblSensorLimits{"lblSensorLimits"};
  ControlArray<Label> lblAlarmMinor{"lblAlarmMinor"};
  ControlArray<CtrTextEdit> cteWaterValues{"cteWaterValues"};
  ControlArray<Label> lblWaterValues{"lblWaterValues"};
  ControlArray<Label> lblWaterValuesMinor{"lblWaterValuesMinor"};
  Nested<CtrStatus> CtrStatus1{"CtrStatus1"};

  bool mLoopChannelAnswered = false;  // a channel has answered this test with a running value
};

}  // namespace ostrand
