#pragma once

#include <QPointer>
#include <functional>

#include "workbench/window/Departure.h"
#include "workbench/window/TransferCommands.h"

namespace ostrand {

class WaitingDialog;

// Edits that the device has not been told: taking them back, and applying them.
class EditCommands {
 public:
  EditCommands(Workbench& workbench, ViewPanel& panel, const UserTalk& user, const Departure& departure, TransferCommands& transfers, QWidget& window)
      : mWorkbench(workbench), mPanel(panel), mUser(user), mDeparture(departure), mTransfers(transfers), mWindow(window) {}

  void undo();
  void discardAll();
  // Lists what waits; nothing is written before the user has seen it.
  void review();
  WaitingDialog* waitingDialog() const;

  // Some edit has gone.
  std::function<void()> onChanged;

 private:
  void changed() const;

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  const Departure& mDeparture;
  TransferCommands& mTransfers;
  QWidget& mWindow;
  QPointer<WaitingDialog> mWaiting;
};

}  // namespace ostrand
