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
  void setTexts(const Texts& texts) { mTexts = texts; }

  int ask(const std::string& title, const std::string& message) override;
  void show(const std::string& title, const std::string& message) override;

  // Instead of the dialog, for programs that run without a user: gives the answer, which `show` does not look at.
  std::function<int(const std::string& title, const std::string& message)> standIn;

 private:
  void showBox(const std::string& title, const std::string& message);

  QWidget* mWindow = nullptr;
  Texts mTexts;
  QObject mTurn;
  std::string mSaid;  // in this turn of the event loop
};

}  // namespace ostrand
