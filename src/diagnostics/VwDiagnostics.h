#pragma once

#include <array>
#include <string>

#include "bus/IBusDependent.h"
#include "diagnostics/DiagnosticsView.h"
#include "diagnostics/EventLogTable.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// The single-channel devices: status tree, loop test of the one output, event logs and their reset. A loop test
// ends when the device answers 0.
class VwDiagnostics : public DiagnosticsView {
 public:
  VwDiagnostics() : DiagnosticsView("VwDiagnostics") {}

  void PrepareToRelease() override;
  void SetErrorData(const Document& doc) override;
  void SetImportData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void initialize() override;
  void resized() override;
  void clear() override;
  void cmdLoopTest_Click() override;
  void stopLoopTest(Procedure& proc) override;

 private:
  static constexpr int kEventLogFrame = 2;

  void chkReset_Click();
  void cmdReset_Click();
  void loopTestAnswered(Procedure& proc, const Document& doc);
  void deviceStatusAnswered(Procedure& proc, const Document& doc);
  void eventLogAnswered(Procedure& proc, const Document& doc, const Node& response);
  void updateEventLog(const Ref<Messenger>& messenger, const Document& doc, bool online);
  void AddEventLogEvent(const Ref<Messenger>& messenger, ListView& list, int row, const std::string& eventText, const std::string& countText);

  Label lblLoopTest{"lblLoopTest"};
  CtrTextEdit cteLoopTest{"cteLoopTest"};
  ControlArray<ListView> lsvEventLog{"lsvEventLog"};
  CommandButton cmdReset{"cmdReset"};
  ControlArray<CheckBox> chkReset{"chkReset"};

  Ref<IBusDependent> mBus;
  std::array<std::string, 4> mGroupStates;  // one sync word for each frame
  EventLogTable mEventLogNodes;
};

}  // namespace ostrand
