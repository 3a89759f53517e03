#pragma once

#include <string>
#include <vector>

#include "platform/desktop/TimerQueue.h"

namespace ostrand {

// A desktop without a machine, for transcripts and tests: its clock begins at 2026-01-05 08:00:00 and moves
// only when somebody waits, and the user's part is set from outside.
class VirtualDesktop : public Desktop {
 public:
  LocalTime now() const override { return mNow; }
  void wait(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> work) override;
  void cancel(TimerId timer) override { mTimers.remove(timer); }
  bool keyDown(Key key) const override { return key == Key::Tab ? tabDown : shiftDown; }
  const Locale& locale() const override { return *mLocale; }
  std::optional<std::filesystem::path> openDialog(const FileDialog& dialog) override;
  std::optional<std::filesystem::path> saveDialog(const FileDialog& dialog) override;
  void debugOutput(const std::string& text) override;

  // False if there is no locale of this name.
  bool setLocale(std::string_view name);
  // Moves the clock and runs what falls due on the way.
  void advance(double seconds);

  bool tabDown = false;
  bool shiftDown = false;
  std::optional<std::filesystem::path> nextFile;  // what the next file dialog gives
  // Called before a wait begins, for a file dialog, and for debug output.
  std::function<void(double seconds)> onWait;
  std::function<void(const char* kind, const FileDialog&, const std::optional<std::filesystem::path>&)> onDialog;
  std::function<void(const std::string&)> onDebugOutput;

 private:
  std::optional<std::filesystem::path> answer(const char* kind, const FileDialog& dialog);

  LocalTime mNow = std::chrono::local_days(std::chrono::year(2026) / 1 / 5) + std::chrono::hours(8);
  TimerQueue mTimers;
  const Locale* mLocale = &Locale::english();
};

}  // namespace ostrand
