#pragma once

#include <QString>
#include <functional>

#include "workbench/plant/Workbench.h"
#include "workbench/window/StatusLine.h"

namespace ostrand {

// How the commands of the window speak with the user: in his language, in dialogs over the window and in its status line.
class UserTalk {
 public:
  UserTalk(Workbench& workbench, StatusLine& status) : mWorkbench(workbench), mStatus(status) {}

  QString say(const char* english) const { return mWorkbench.texts().say(english); }
  // Into the status line.
  void remark(const QString& text) const { mStatus.say(text); }
  // A message that waits for the user.
  void tell(const QString& title, const QString& text) const;
  // Carries out a command. An error becomes a message to the user; `trying` says what was tried.
  bool attempt(const QString& trying, const std::function<void()>& command) const;

 private:
  Workbench& mWorkbench;
  StatusLine& mStatus;
};

}  // namespace ostrand
