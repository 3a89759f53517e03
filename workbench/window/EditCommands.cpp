#include "workbench/window/EditCommands.h"

#include "host/PendingEdits.h"
#include "platform/controls/Component.h"
#include "workbench/dialogs/WaitingDialog.h"

namespace ostrand {

void EditCommands::changed() const {
  if (onChanged) onChanged();
}

void EditCommands::undo() {
  mPanel.commit();
  ViewSite* const front = mWorkbench.host().views().front();
  const std::vector<EditControl*> edits = front ? pendingEdits(front->view()) : std::vector<EditControl*>();
  if (edits.empty()) return mUser.remark(mUser.say("There is no edit on this page"));
  EditControl* edit = edits.back();
  for (EditControl* const each : edits)
    if (each->owner() && each->owner()->focused() == each) edit = each;
  mPanel.act(
      *edit, [edit] { edit->restore(); }, UserInput::restoring(*edit));
  changed();
}

void EditCommands::discardAll() {
  mPanel.commit();
  if (!mDeparture.mayHandIn(mWorkbench.current())) return;
  const QString message = mUser.say("All values go back to what the data set last knew of the device.");
  if (mWorkbench.prompt().choose(mUser.say("Discard all edits?"), message, {mUser.say("Discard them"), mUser.say("Keep them")}) != 0) return;
  mUser.attempt(mUser.say("The edits could not be discarded"), [&] { mWorkbench.host().edits().discard(); });
  changed();
}

WaitingDialog* EditCommands::waitingDialog() const { return mWaiting; }

void EditCommands::review() {
  if (!mTransfers.mayBegin()) return;
  mUser.attempt(mUser.say("The edits could not be applied"), [&] {
    // One that was closed may still be there for a moment, and is of another device.
    if (!mWaiting || !mWaiting->isVisible()) {
      mWaiting = new WaitingDialog(mWorkbench, &mWindow);
      mWaiting->onChanged = [this] {
        mPanel.refresh();
        changed();
      };
    }
    mWaiting->begin();
  });
}

}  // namespace ostrand
