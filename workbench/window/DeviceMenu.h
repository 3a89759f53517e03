#pragma once

#include <QString>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace ostrand {

class ConnectionCommands;
class EditCommands;
class TransferCommands;
class Workbench;

// What passes between data set and device: reading, comparing, applying and taking back edits, the connection, the simulator.
class DeviceMenu {
 public:
  struct Commands {
    TransferCommands& transfers;
    EditCommands& edits;
    ConnectionCommands& connection;
  };
  DeviceMenu(QMainWindow& window, QToolBar& tools, const Commands& commands, Workbench& workbench);

  void refresh();

 private:
  void refreshModes();

  Workbench& mWorkbench;
  QAction* mReadPage;
  QAction* mUndo;
  QAction* mDiscard;
  QAction* mApply;
  QMenu* mModes;
};

}  // namespace ostrand
