#include "workbench/window/TransferCommands.h"

#include "workbench/dialogs/CompareDialog.h"
#include "workbench/dialogs/TransferDialog.h"

namespace ostrand {

TransferDialog* TransferCommands::transferDialog() const { return mTransfer; }

CompareDialog* TransferCommands::compareDialog() const { return mCompare; }

bool TransferCommands::mayBegin() {
  mPanel.commit();
  if (!mWorkbench.host().exchange().transfer().running()) return true;
  mUser.remark(mUser.say("A transfer is running; wait for its end"));
  return false;
}

void TransferCommands::show() {
  // One that was closed may still be there for a moment, and is of another device.
  if (!mTransfer || !mTransfer->isVisible()) mTransfer = new TransferDialog(mWorkbench, &mWindow);
  mTransfer->begin();
}

void TransferCommands::readPage() {
  if (!mayBegin()) return;
  mUser.attempt(mUser.say("The page could not be read"), [&] {
    PlantDevice& device = mWorkbench.current();
    device.host().exchange().readGroup(device.frame(), [this, &device, alive = QPointer(&mWindow)] {
      // One page needs no list of its own, unless something failed.
      if (alive && &device == &mWorkbench.current() && !device.host().exchange().transfer().failures().empty()) show();
    });
  });
}

void TransferCommands::readAll() {
  if (!mayBegin()) return;
  if (mUser.attempt(mUser.say("The device could not be read"), [&] { mWorkbench.host().exchange().readAll(); })) show();
}

void TransferCommands::compare() {
  mPanel.commit();
  if (!mCompare || !mCompare->isVisible()) mCompare = new CompareDialog(mWorkbench, &mWindow);
  mUser.attempt(mUser.say("Data set and device could not be compared"), [&] { mCompare->begin(); });
}

}  // namespace ostrand
