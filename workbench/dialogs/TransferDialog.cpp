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

TransferDialog::TransferDialog(Host& host, const Texts& texts, QWidget* parent)
    : QDialog(parent), mHost(host), mTexts(texts), mNote(new QLabel), mProgress(new QProgressBar), mFailures(new QTreeWidget) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(mTexts.say("Transfer"));
  mProgress->setTextVisible(false);
  mFailures->setColumnCount(3);
  mFailures->setHeaderLabels({mTexts.say("Value"), mTexts.say("Page"), mTexts.say("What went wrong")});
  mFailures->setRootIsDecorated(false);
  mFailures->setUniformRowHeights(true);
  mFailures->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  auto* const buttons = new QDialogButtonBox;
  mRetry = buttons->addButton(mTexts.say("Retry what failed"), QDialogButtonBox::ActionRole);
  mCancel = buttons->addButton(mTexts.say("Cancel what waits"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(mTexts.say("Close"), QDialogButtonBox::RejectRole);
  connect(mRetry, &QPushButton::clicked, this, [this] { retry(); });
  connect(mCancel, &QPushButton::clicked, this, [this] { mHost.communication().cancelWaiting(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(mNote);
  layout->addWidget(mProgress);
  layout->addWidget(mFailures, 1);
  layout->addWidget(buttons);
  resize(860, 420);
  mHost.observers().add(*this);
}

TransferDialog::~TransferDialog() { mHost.observers().remove(*this); }

void TransferDialog::begin() {
  refresh();
  show();
  raise();
}

void TransferDialog::retry() {
  mHost.transfer().retry([alive = QPointer(this)] {
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
  const Transfer& transfer = mHost.transfer();
  const auto& failures = transfer.failures();
  mProgress->setRange(0, std::max(1, transfer.total()));
  mProgress->setValue(transfer.total() == 0 ? 1 : transfer.done());
  QString note = mTexts.say("%1 of %2 requests").arg(transfer.done()).arg(transfer.total());
  if (!transfer.running()) note = failures.empty() ? mTexts.say("Done: all %1 requests were answered.").arg(transfer.total()) : mTexts.say("Done, but %1 values failed.").arg(failures.size());
  mNote->setText(note);
  if (mFailures->topLevelItemCount() > static_cast<int>(failures.size())) mFailures->clear();
  for (std::size_t i = static_cast<std::size_t>(mFailures->topLevelItemCount()); i < failures.size(); ++i) {
    const Transfer::Failure& failure = failures[i];
    new QTreeWidgetItem(mFailures, {mTexts(failure.item), mTexts(failure.group), failure.errorCode.empty() ? qt(failure.reason) : mTexts(failure.errorCode)});
  }
  mRetry->setEnabled(!transfer.running() && !failures.empty());
  mCancel->setEnabled(mHost.communication().waiting() > 0);
}

}  // namespace ostrand
