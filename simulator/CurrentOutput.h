#pragma once

#include <string_view>

namespace ostrand::simulator {

// What a current output drives: 4 to 20 mA over its range, held at 3.6 and 22 mA.
struct CurrentOutput {
  // It cannot be driven lower by a test.
  static constexpr double kLowestTest = 3.5;

  double percent;  // of the range; NaN for no value
  double current;  // mA
  bool isFixed = false;
  bool isSaturated = false;

  static CurrentOutput of(double value, double lower, double upper);
  // Drives what a device drives when it cannot measure: a key of the mapping `failSafeAlarmCurrent`.
  void alarm(std::string_view key, double lastCurrent);
  void fix(double mA);
};

}  // namespace ostrand::simulator
