#include "workbench/window/ConnectionCommands.h"

#include "workbench/dialogs/FaultsDialog.h"

namespace ostrand {

void ConnectionCommands::setMode(int mode) {
  mPanel.commit();
  mWorkbench.host().setCommunicationMode(static_cast<CommunicationMode>(mode));
  mPanel.refresh();
  if (onMode) onMode();
}

void ConnectionCommands::simulator() {
  if (!mFaults || !mFaults->isVisible()) mFaults = new FaultsDialog(mWorkbench, mPanel.theme(), &mWindow);
  mFaults->show();
  mFaults->raise();
}

}  // namespace ostrand
