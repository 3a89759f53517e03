#include "platform/desktop/VirtualDesktop.h"

#include <algorithm>
#include <cmath>

namespace ostrand {

namespace {

std::chrono::milliseconds milliseconds(double seconds) { return std::chrono::milliseconds(std::llround(std::max(0.0, seconds) * 1000.0)); }

}  // namespace

void VirtualDesktop::wait(double seconds) {
  if (onWait) onWait(seconds);
  advance(seconds);
}

void VirtualDesktop::advance(double seconds) {
  const LocalTime target = mNow + milliseconds(seconds);
  while (!mTimers.empty() && mTimers.nextDue() <= target) {
    // A wait inside the work may have moved the clock on.
    mNow = std::max(mNow, mTimers.nextDue());
    mTimers.runNext(*this);
  }
  mNow = std::max(mNow, target);
}

Desktop::TimerId VirtualDesktop::schedule(double seconds, std::function<void()> work) {
  return mTimers.add(mNow + milliseconds(seconds), std::move(work));
}

bool VirtualDesktop::setLocale(std::string_view name) {
  const Locale* const locale = Locale::find(name);
  if (locale) mLocale = locale;
  return locale != nullptr;
}

std::optional<std::filesystem::path> VirtualDesktop::answer(const char* kind, const FileDialog& dialog) {
  const auto file = std::exchange(nextFile, std::nullopt);
  if (onDialog) onDialog(kind, dialog, file);
  return file;
}

std::optional<std::filesystem::path> VirtualDesktop::openDialog(const FileDialog& dialog) { return answer("OpenDialog", dialog); }

std::optional<std::filesystem::path> VirtualDesktop::saveDialog(const FileDialog& dialog) { return answer("SaveDialog", dialog); }

void VirtualDesktop::debugOutput(const std::string& text) {
  if (onDebugOutput) onDebugOutput(text);
}

}  // namespace ostrand
