#include "workbench/dialogs/PrioritiesDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "workbench/plant/SignalSymbol.h"

namespace ostrand {

std::optional<std::vector<Ne107>> PrioritiesDialog::choose(QWidget& window, const Texts& texts, const std::vector<Ne107>& priorities) {
  QDialog dialog(&window);
  dialog.setWindowTitle(texts.say("Order of device signals"));
  auto* const note = new QLabel(texts.say("When several signals are in force, the uppermost is shown. This order holds for every device."));
  note->setWordWrap(true);
  auto* const list = new QListWidget;
  for (const Ne107 each : priorities) {
    auto* const item = new QListWidgetItem(QIcon(signalSymbol(each, 20, window.devicePixelRatioF())),
                                           QStringLiteral("%1   %2").arg(signalLetter(each), signalWord(each, texts)), list);
    item->setData(Qt::UserRole, static_cast<int>(each));
  }
  list->setCurrentRow(0);
  const auto move = [list](int by) {
    const int row = list->currentRow(), to = row + by;
    if (row < 0 || to < 0 || to >= list->count()) return;
    list->insertItem(to, list->takeItem(row));
    list->setCurrentRow(to);
  };
  auto* const up = new QPushButton(texts.say("Move up"));
  auto* const down = new QPushButton(texts.say("Move down"));
  for (QPushButton* const each : {up, down}) each->setAutoDefault(false);
  QObject::connect(up, &QPushButton::clicked, list, [move] { move(-1); });
  QObject::connect(down, &QPushButton::clicked, list, [move] { move(1); });
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

  auto* const side = new QVBoxLayout;
  side->addWidget(up);
  side->addWidget(down);
  side->addStretch(1);
  auto* const middle = new QHBoxLayout;
  middle->addWidget(list, 1);
  middle->addLayout(side);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(note);
  layout->addLayout(middle);
  layout->addWidget(buttons);
  dialog.resize(420, 280);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;

  std::vector<Ne107> chosen;
  for (int row = 0; row < list->count(); ++row) chosen.push_back(static_cast<Ne107>(list->item(row)->data(Qt::UserRole).toInt()));
  return chosen;
}

}  // namespace ostrand
