#include "workbench/desktop/QtPrompt.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace ostrand {

int QtPrompt::ask(const std::string& title, const std::string& message) {
  if (standIn) return standIn(title, message);
  QMessageBox box(QMessageBox::NoIcon, qt(title), qt(title), QMessageBox::NoButton, mWindow);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(qt(message).trimmed());
  const QPushButton* const yes = box.addButton(mTexts.say("Yes, go on"), QMessageBox::YesRole);
  QPushButton* const no = box.addButton(mTexts.say("No, stop"), QMessageBox::NoRole);
  // The harmless answer is the one that Enter and Escape give.
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes ? kGoOn : kStop;
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
