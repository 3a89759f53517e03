#include "platform/desktop/RealDesktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

namespace ostrand {

namespace {

using namespace std::chrono;

LocalTime wallClock() {
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  localtime_r(&seconds, &local);
#endif
  return local_days(year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday) + hours(local.tm_hour) + minutes(local.tm_min) +
         std::chrono::seconds(local.tm_sec) + duration_cast<milliseconds>(now.time_since_epoch()) % 1000;
}

const Locale& userLocale() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
    if (const char* value = std::getenv(variable); value && *value) {
      // The first that is set decides, also when it says "C".
      const Locale* const locale = Locale::find(std::string_view(value).substr(0, std::string_view(value).find_first_of("_.@")));
      return locale ? *locale : Locale::english();
    }
  return Locale::english();
}

}  // namespace

RealDesktop::RealDesktop() : mLocale(&userLocale()), mStart(wallClock()), mSteadyStart(steady_clock::now()) {}

LocalTime RealDesktop::now() const { return mStart + duration_cast<milliseconds>(steady_clock::now() - mSteadyStart); }

void RealDesktop::wait(double seconds) {
  const LocalTime target = now() + milliseconds(static_cast<long long>(std::max(0.0, seconds) * 1000.0));
  while (true) {
    const LocalTime at = now();
    if (!mTimers.empty() && mTimers.nextDue() <= at) {
      mTimers.runNext(*this);
      continue;
    }
    if (at >= target) return;
    const LocalTime next = mTimers.empty() ? target : std::min(target, mTimers.nextDue());
    std::this_thread::sleep_for(next - at);
  }
}

Desktop::TimerId RealDesktop::schedule(double seconds, std::function<void()> work) {
  return mTimers.add(now() + milliseconds(static_cast<long long>(std::max(0.0, seconds) * 1000.0)), std::move(work));
}

void RealDesktop::debugOutput(const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }

}  // namespace ostrand
