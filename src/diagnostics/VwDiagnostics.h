#pragma once

#include <array>
#include <string>

#include "bus/IBusDependent.h"
#include "core/View.h"
#include "platform/controls/CtrStatus.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// The single-channel devices: status tree, loop test, event logs and their reset. During a loop test the
// device drives its output with a value of the user's, until it answers 0.
class VwDiagnostics : public View {
 public:
  VwDiagnostics();

  bool LeaveSelectedView() override;
  void SetMessenger(const Ref<Messenger>& messenger) override;
  void SetErrorData(const Document& doc) override;
  void SetImportData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void initialize() override;
  void resized() override;
  void clear() override;

 private:
  static constexpr int kKinds = 2;       // event, count
  static constexpr int kCategories = 3;  // error, warning, information
  static constexpr int kRows = 8;
  static constexpr int kEventLogFrame = 2;

  void cmdLoopTest_Click();
  void cmdStopLoopTest_Click();
  void chkReset_Click();
  void cmdReset_Click();
  void loopTestAnswered(Procedure& proc, const Document& doc);
  void deviceStatusAnswered(Procedure& proc, const Document& doc);
  void eventLogAnswered(Procedure& proc, const Document& doc, const Node& response);
  void buildEventLogNodes(const Document& doc);
  void updateEventLog(const Document& doc, bool online);
  void AddEventLogEvent(ListView& list, int row, const std::string& eventText, const std::string& countText);

  Nested<CtrStatus> CtrStatus1{"CtrStatus1"};
  Label lblLoopTest{"lblLoopTest"};
  CtrTextEdit cteLoopTest{"cteLoopTest"};
  CommandButton cmdLoopTest{"cmdLoopTest"};
  CommandButton cmdStopLoopTest{"cmdStopLoopTest"};
  ControlArray<ListView> lsvEventLog{"lsvEventLog"};
  CommandButton cmdReset{"cmdReset"};
  ControlArray<CheckBox> chkReset{"chkReset"};

  Ref<IBusDependent> mBus;
  std::array<std::string, 4> mGroupStates;  // one sync word for each frame
  std::array<std::array<std::array<Node, kRows>, kCategories>, kKinds> mEventLogNodes;
};

}  // namespace ostrand
