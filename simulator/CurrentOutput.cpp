#include "simulator/CurrentOutput.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ostrand::simulator {

namespace {

// Percent of the range at which the output is held, and the current that belongs to it: 3.6 and 22 mA.
constexpr double kLowestPercent = -2.5;
constexpr double kHighestPercent = 112.5;
constexpr double currentOf(double percent) { return 4.0 + 0.16 * percent; }

}  // namespace

CurrentOutput CurrentOutput::of(double value, double lower, double upper) {
  const double asked = upper == lower ? 0 : 100 * (value - lower) / (upper - lower);
  const double percent = std::isnan(asked) ? std::numeric_limits<double>::quiet_NaN() : std::clamp(asked, kLowestPercent, kHighestPercent);
  return {percent, currentOf(percent), false, percent != asked && !std::isnan(asked)};
}

void CurrentOutput::alarm(std::string_view key, double lastCurrent) {
  current = key == "alarmCurrentLow" ? currentOf(kLowestPercent) : key == "alarmCurrentHold" ? lastCurrent : currentOf(kHighestPercent);
}

void CurrentOutput::fix(double mA) {
  current = mA;
  isFixed = true;
  isSaturated = false;
}

}  // namespace ostrand::simulator
