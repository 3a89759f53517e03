#pragma once

#include <QPointer>

#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

class FaultsDialog;

// How the device is spoken to, and what is wrong with the simulated one.
class ConnectionCommands {
 public:
  ConnectionCommands(Workbench& workbench, ViewPanel& panel, QWidget& window) : mWorkbench(workbench), mPanel(panel), mWindow(window) {}

  // 10, 11, 20 or 21, as the views know them.
  void setMode(int mode);
  void simulator();

  // Another mode is set.
  std::function<void()> onMode;

 private:
  Workbench& mWorkbench;
  ViewPanel& mPanel;
  QWidget& mWindow;
  QPointer<FaultsDialog> mFaults;
};

}  // namespace ostrand
