#pragma once

#include <QPointer>

#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

class CompareDialog;
class TransferDialog;

// What passes between data set and device: reading, comparing, and the list of what of it failed.
class TransferCommands {
 public:
  TransferCommands(Workbench& workbench, ViewPanel& panel, const UserTalk& user, QWidget& window)
      : mWorkbench(workbench), mPanel(panel), mUser(user), mWindow(window) {}

  void readPage();
  void readAll();
  void compare();

  // Whether nothing else is being transferred; if so, the user is told. What is typed counts from here on.
  bool mayBegin();
  // How far the transfer is and what of it failed.
  void show();
  TransferDialog* transferDialog() const;
  CompareDialog* compareDialog() const;

 private:
  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  QWidget& mWindow;
  QPointer<TransferDialog> mTransfer;
  QPointer<CompareDialog> mCompare;
};

}  // namespace ostrand
