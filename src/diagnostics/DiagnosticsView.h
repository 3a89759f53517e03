#pragma once

#include "core/View.h"
#include "platform/controls/CtrStatus.h"

namespace ostrand {

// What the two diagnostics views share: a status tree inside its frame, and a loop test with a start and a stop
// button, of which the stop button's being enabled is the whole state. While a test runs the device drives its
// output with a value of the user's; the view is not left before the user has said what is to become of it.
class DiagnosticsView : public View {
 public:
  bool LeaveSelectedView() override;
  void SetMessenger(const Ref<Messenger>& messenger) override;
  void PrepareToRelease() override;

 protected:
  explicit DiagnosticsView(std::string_view objectName);
  void initialize() override;

  virtual void cmdLoopTest_Click() = 0;
  virtual void cmdStopLoopTest_Click() = 0;

  // False if the user does not want the test; a running one takes a new value without a question.
  bool confirmsTest(Procedure& proc);
  void toRunning(Procedure& proc);
  void toIdle(Procedure& proc);
  void statusAnswered(Procedure& proc, const Document& doc, CtrDateLabel& stamp);
  void statusFailed(Procedure& proc, const Document& doc);

  CommandButton cmdLoopTest{"cmdLoopTest"};
  CommandButton cmdStopLoopTest{"cmdStopLoopTest"};
  Nested<CtrStatus> CtrStatus1{"CtrStatus1"};
};

}  // namespace ostrand
