#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/dialogs/DeviceDialog.h"

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace ostrand {

// What waits to be written to the device: a row for each value, with the page, what the device has and what it is to get. Ticked
// rows are written or dropped; what came of it stands in the row, and what has failed can be tried again.
class WaitingDialog : public DeviceDialog {
 public:
  WaitingDialog(Workbench& workbench, QWidget* parent);

  // Lists what waits now.
  void begin();
  void writeTicked();
  void dropTicked();
  QTreeWidget& list() const { return *mList; }

  // Something has been written or dropped.
  std::function<void()> onChanged;

 private:
  enum Column { Value, Page, DeviceHas, New, Unit, Result, kColumns };

  void settingsChanged() override { refresh(); }
  void addRow(const Change& change);
  void addLeftOut(const EditControl& edit);
  void refresh();
  bool renewRows();
  void finish();
  void changed();
  void fitColumns();
  void settle(QTreeWidgetItem& row, const QString& result, bool waits);
  std::vector<QTreeWidgetItem*> ticked() const;
  const Change& changeOf(const QTreeWidgetItem& row) const;
  QString pageText(const Change& change) const;
  QString whyLeftOut(const Change& change) const;
  QString wordOf(LeftOut::Why why) const;

  QLabel* mNote;
  QTreeWidget* mList;
  QPushButton* mWrite;
  QPushButton* mDrop;
  std::vector<Change> mChanges;  // by the number of the row; below them stand those that are left out
  std::vector<std::string> mSent;
  bool mWriting = false;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
