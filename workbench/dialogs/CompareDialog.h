#pragma once

#include <string>
#include <vector>

#include "workbench/dialogs/DeviceDialog.h"

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace ostrand {

// The data set beside the device: a row for each value, the difference within the decimals that are shown. Ticked rows are
// read into the data set or written to the device.
class CompareDialog : public DeviceDialog, private HostObserver {
 public:
  CompareDialog(Workbench& workbench, QWidget* parent);
  ~CompareDialog() override;

  // Asks the device. RuntimeError 91 without a data set.
  void begin();
  void tick(const std::string& parameter, bool on);
  void readTicked();
  void writeTicked();
  void showOnlyDifferences(bool on);
  QTableWidget& table() const { return *mTable; }

 private:
  enum Column { Value, DataSetSays, DeviceSays, Difference, kColumns };

  void requestFinished(const Request&, Outcome) override { refreshProgress(); }
  void settingsChanged() override { refreshProgress(); }
  void refreshProgress();
  void fill();
  void filter();
  std::vector<std::string> ticked() const;
  QString shown(const Comparison::Row& row, const std::string& value) const;
  QString difference(const Comparison::Row& row) const;

  QLabel* mNote;
  QProgressBar* mProgress;
  QTableWidget* mTable;
  QCheckBox* mOnlyDifferences;
  QPushButton* mAgain;
  QPushButton* mRead;
  QPushButton* mWrite;
  QStringList mLeftOut;  // of what was ticked to be written last
  bool mRunning = false;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
