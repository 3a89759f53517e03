#include "workbench/dialogs/TransferDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace ostrand {

TransferDialog::TransferDialog(Workbench& workbench, QWidget* parent)
    : DeviceDialog(workbench, "Transfer", parent), mNote(new QLabel), mProgress(new QProgressBar), mFailures(new QTreeWidget) {
  mProgress->setTextVisible(false);
  mFailures->setColumnCount(3);
  mFailures->setHeaderLabels({texts().say("Value"), texts().say("Page"), texts().say("What went wrong")});
  mFailures->setRootIsDecorated(false);
  mFailures->setUniformRowHeights(true);
  mFailures->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  auto* const buttons = new QDialogButtonBox;
  mRetry = buttons->addButton(texts().say("Retry what failed"), QDialogButtonBox::ActionRole);
  mCancel = buttons->addButton(texts().say("Cancel what waits"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(texts().say("Close"), QDialogButtonBox::RejectRole);
  connect(mRetry, &QPushButton::clicked, this, [this] { retry(); });
  connect(mCancel, &QPushButton::clicked, this, [this] { host().communication().cancelWaiting(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  column().addWidget(mNote);
  column().addWidget(mProgress);
  column().addWidget(mFailures, 1);
  column().addWidget(buttons);
  openAs(860, 420);
  host().observers().add(*this);
}

TransferDialog::~TransferDialog() { host().observers().remove(*this); }

void TransferDialog::begin() {
  refresh();
  show();
  raise();
}

void TransferDialog::retry() {
  host().exchange().transfer().retry([alive = QPointer(this)] {
    if (alive) alive->refreshLater();
  });
  refresh();
}

int TransferDialog::failuresShown() const { return mFailures->topLevelItemCount(); }

void TransferDialog::refreshLater() {
  if (std::exchange(mScheduled, true)) return;
  QTimer::singleShot(0, this, [this] {
    mScheduled = false;
    refresh();
  });
}

void TransferDialog::refresh() {
  const Transfer& transfer = host().exchange().transfer();
  const auto& failures = transfer.failures();
  mProgress->setRange(0, std::max(1, transfer.total()));
  mProgress->setValue(transfer.total() == 0 ? 1 : transfer.done());
  QString note = texts().say("%1 of %2 requests").arg(transfer.done()).arg(transfer.total());
  if (!transfer.running())
    note = failures.empty() ? texts().say("Done: all %1 requests were answered.").arg(transfer.total())
                            : texts().say("Done, but %1 values failed.").arg(failures.size());
  mNote->setText(note);
  if (mFailures->topLevelItemCount() > static_cast<int>(failures.size())) mFailures->clear();
  for (std::size_t i = static_cast<std::size_t>(mFailures->topLevelItemCount()); i < failures.size(); ++i) {
    const Transfer::Failure& failure = failures[i];
    new QTreeWidgetItem(mFailures,
                        {texts()(failure.item), texts()(failure.group), failure.errorCode.empty() ? qt(failure.reason) : texts()(failure.errorCode)});
  }
  mRetry->setEnabled(!transfer.running() && !failures.empty());
  mCancel->setEnabled(host().communication().waiting() > 0);
}

}  // namespace ostrand
