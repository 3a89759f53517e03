#pragma once

#include <QPointer>
#include <QString>
#include <vector>

#include "host/HostObserver.h"

class QAction;
class QMenu;
class QToolBar;

namespace ostrand {

class CompareDialog;
class FaultsDialog;
class MainWindow;
class TransferDialog;

// What passes between data set and device: reading, comparing, applying and taking back edits, the connection, the simulator.
class DeviceMenu {
 public:
  DeviceMenu(MainWindow& window, QToolBar& tools);

  void refresh();

  void readPage();
  void readAll();
  void compare();
  void undoEdit();
  void discardEdits();
  void applyEdits();
  // 10, 11, 20 or 21, as the views know them.
  void setMode(int mode);
  void simulator();

  TransferDialog* transferDialog() const;
  CompareDialog* compareDialog() const;

 private:
  void showTransfer();
  bool mayTransfer();
  void addOfflineEdits(std::vector<Change>& changes) const;
  QString say(const char* english) const;

  MainWindow& mWindow;
  QAction* mReadPage;
  QAction* mUndo;
  QAction* mDiscard;
  QAction* mApply;
  QMenu* mModes;
  QPointer<TransferDialog> mTransfer;
  QPointer<CompareDialog> mCompare;
  QPointer<FaultsDialog> mFaults;
};

}  // namespace ostrand
