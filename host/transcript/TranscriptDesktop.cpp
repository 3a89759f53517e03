#include "host/transcript/TranscriptDesktop.h"

#include <algorithm>

#include "platform/base/NumberText.h"

namespace ostrand {

void TranscriptDesktop::wait(double seconds) {
  const std::string length = plainText(seconds, '.');
  const TranscriptOutput::Call call = mOutput.begins({"wait", length, length, {}, mOutput.tracing()});
  try {
    mOutput.enters(call);
    // What comes in between takes its time out of this wait, as in front of a real clock.
    const LocalTime begin = now();
    mOutput.interrupt(call);
    const double passed = std::chrono::duration<double>(now() - begin).count();
    advance(std::max(0.0, seconds - passed));
  } catch (...) {
    mOutput.fails(call, currentError());
    throw;
  }
  mOutput.returns(call, {});
}

std::optional<std::filesystem::path> TranscriptDesktop::ask(const char* call, const FileDialog& dialog,
                                                            const std::function<std::filesystem::path(const std::string&)>& place) {
  const CallText text{call, argumentsText(dialog.title, dialog.filter, dialog.extension, dialog.name), dialog.title, {}, true};
  std::optional<std::string> chosen;
  return listenedTo(
      mOutput, text,
      [&]() -> std::optional<std::filesystem::path> {
        if (!files.empty()) {
          chosen = files.front();
          files.pop_front();
        }
        return chosen ? std::optional(place(*chosen)) : std::nullopt;
      },
      [&](const auto&) { return chosen ? inQuotes(*chosen) : "cancel"; });
}

void TranscriptDesktop::debugOutput(const std::string& text) {
  listenedTo(mOutput, {"DebugTrace", inQuotes(text), text, {}, true}, [&] { VirtualDesktop::debugOutput(text); });
}

}  // namespace ostrand
