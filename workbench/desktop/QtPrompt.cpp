#include "workbench/desktop/QtPrompt.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <vector>

namespace ostrand {

int QtPrompt::ask(const std::string& title, const std::string& message, const Answers& answers) {
  if (standIn) return standIn(title, message);
  return choose(qt(title), qt(message), {qt(answers.goOn), qt(answers.stop)}) == 0 ? kGoOn : kStop;
}

std::size_t QtPrompt::choose(const QString& title, const QString& message, const QStringList& answers) {
  const std::size_t safe = static_cast<std::size_t>(answers.size()) - 1;
  if (standIn) return standIn(title.toStdString(), message.toStdString()) == kGoOn ? 0 : safe;
  QMessageBox box(QMessageBox::NoIcon, title, title, QMessageBox::NoButton, mWindow);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(message.trimmed());
  // One role for all: a style puts buttons of other roles in an order of its own.
  std::vector<QPushButton*> buttons;
  for (const QString& answer : answers) buttons.push_back(box.addButton(answer, QMessageBox::ActionRole));
  // A box is never wider than its screen lets it be: it would cut the words off.
  if (auto& row = *box.findChild<QDialogButtonBox*>(); row.sizeHint().width() > box.screen()->availableSize().width() / 2)
    row.setOrientation(Qt::Vertical);
  box.setDefaultButton(buttons[safe]);
  box.setEscapeButton(buttons[safe]);
  box.exec();
  const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
  return chosen == buttons.end() ? safe : static_cast<std::size_t>(chosen - buttons.begin());
}

void QtPrompt::show(const std::string& title, const std::string& message) {
  // Several views tell the same of one answer: the user reads it once.
  const std::string said = title + '\n' + message;
  if (said == mSaid) return;
  mSaid = said;
  showBox(title, message);
  mSaid = said;
  QTimer::singleShot(0, &mTurn, [this] { mSaid.clear(); });
}

void QtPrompt::showBox(const std::string& title, const std::string& message) {
  if (standIn) {
    standIn(title, message);
    return;
  }
  QMessageBox box(QMessageBox::NoIcon, qt(title), qt(title), QMessageBox::Ok, mWindow);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(qt(message).trimmed());
  box.exec();
}

}  // namespace ostrand
