#pragma once

#include <functional>

#include "host/UserPrompt.h"

class QWidget;

namespace ostrand {

// Asks and tells the user in dialogs over the window. Events go on under an open dialog, so that answers of the device arrive.
class QtPrompt : public UserPrompt {
 public:
  void setWindow(QWidget* window) { mWindow = window; }

  int ask(const std::string& title, const std::string& message) override;
  void show(const std::string& title, const std::string& message) override;

  // Instead of the dialog, for programs that run without a user: gives the answer, which `show` does not look at.
  std::function<int(const std::string& title, const std::string& message)> standIn;

 private:
  QWidget* mWindow = nullptr;
};

}  // namespace ostrand
