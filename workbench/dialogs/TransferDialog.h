#pragma once

#include "workbench/dialogs/DeviceDialog.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace ostrand {

// How far the host's transfer is, and what of it failed, with another try for that. The window goes on beside it.
class TransferDialog : public DeviceDialog, private HostObserver {
 public:
  TransferDialog(Workbench& workbench, QWidget* parent);
  ~TransferDialog() override;

  // Shows the transfer that is running, or that has just ended.
  void begin();
  void retry();
  int failuresShown() const;

 private:
  void requestFinished(const Request&, Outcome) override { refreshLater(); }
  void requestAnswered(const Request&, const Document&) override { refreshLater(); }
  void refreshLater();
  void refresh();

  QLabel* mNote;
  QProgressBar* mProgress;
  QTreeWidget* mFailures;
  QPushButton* mRetry;
  QPushButton* mCancel;
  bool mScheduled = false;
};

}  // namespace ostrand
