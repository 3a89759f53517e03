#pragma once

#include "platform/desktop/TimerQueue.h"

namespace ostrand {

// The desktop of a program without a window: the machine's clock, no keys, no dialogs.
class RealDesktop : public Desktop {
 public:
  RealDesktop();
  LocalTime now() const override;
  void wait(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> work) override;
  void cancel(TimerId timer) override { mTimers.remove(timer); }
  bool keyDown(Key) const override { return false; }
  // From LC_ALL, LC_NUMERIC or LANG; English for what we do not know.
  const Locale& locale() const override { return *mLocale; }
  std::optional<std::filesystem::path> openDialog(const FileDialog&) override { return std::nullopt; }
  std::optional<std::filesystem::path> saveDialog(const FileDialog&) override { return std::nullopt; }
  void debugOutput(const std::string& text) override;

 private:
  TimerQueue mTimers;
  const Locale* mLocale;
  // The wall clock at the start and a clock that never jumps since then.
  LocalTime mStart;
  std::chrono::steady_clock::time_point mSteadyStart;
};

}  // namespace ostrand
