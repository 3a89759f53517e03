#pragma once

#include <QObject>
#include <functional>
#include <string>

#include "host/UserPrompt.h"
#include "workbench/words/Texts.h"

class QWidget;

namespace ostrand {

// Asks and tells the user in dialogs over the window. Events go on under an open dialog, so that answers of the device arrive.
class QtPrompt : public UserPrompt {
 public:
  void setWindow(QWidget* window) { mWindow = window; }

  int ask(const std::string& title, const std::string& message, const Answers& answers) override;
  void show(const std::string& title, const std::string& message) override;

  // A question whose answers say what they do. Gives the place of the one that was chosen; the last one changes nothing: Enter,
  // Escape and closing give it.
  std::size_t choose(const QString& title, const QString& message, const QStringList& answers);

  // Instead of the dialog, for programs that run without a user: gives the answer, which `show` does not look at;
  // to go on stands for the first of several answers, to stop for the last.
  std::function<int(const std::string& title, const std::string& message)> standIn;

 private:
  void showBox(const std::string& title, const std::string& message);

  QWidget* mWindow = nullptr;
  QObject mTurn;
  std::string mSaid;  // in this turn of the event loop
};

}  // namespace ostrand
