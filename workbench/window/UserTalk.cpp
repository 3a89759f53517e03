#include "workbench/window/UserTalk.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

void UserTalk::tell(const QString& title, const QString& text) const { mWorkbench.prompt().show(title.toStdString(), text.toStdString()); }

bool UserTalk::attempt(const QString& trying, const std::function<void()>& command) const {
  try {
    command();
    return true;
  } catch (...) {
    const ErrorText error = currentError();
    mWorkbench.current().tap().note(ConversationLog::Kind::Error, (trying + QStringLiteral(": ")).toStdString() + error.description);
    tell(trying, qt(error.description));
    return false;
  }
}

}  // namespace ostrand
