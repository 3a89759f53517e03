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
  void PrepareToRelease() override;

 protected:
  explicit DiagnosticsView(std::string_view objectName);
  void connect() override;
  void initialize() override;
  void messengerTaken(Procedure& proc) override { enableByLevel(proc, cmdLoopTest); }

  virtual void cmdLoopTest_Click() = 0;
  // The body of cmdStopLoopTest_Click: frees what the test drives.
  virtual void stopLoopTest(Procedure& proc) = 0;

  // False if the user does not want the test, or if the view was released while he was asked. A running one takes a
  // new value without a question.
  bool confirmsTest(Procedure& proc);
  void toRunning(Procedure& proc);
  void toIdle(Procedure& proc);
  // `stamp` is the index of the tree's date label.
  void statusAnswered(Procedure& proc, const Document& doc, int stamp);
  void statusFailed(Procedure& proc, const Document& doc);

  CommandButton cmdLoopTest{"cmdLoopTest"};
  CommandButton cmdStopLoopTest{"cmdStopLoopTest"};
  Nested<CtrStatus> CtrStatus1{"CtrStatus1"};
};

}  // namespace ostrand
