#include "host/OutputRules.h"

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

// The channels of a device that has several answer measured floats; the other values are exact.
constexpr OutputRule kRules[] = {
    {"loopTestValue", false, OutputKind::LoopTest, 0.0, false},
    {"LoopTestValue", true, OutputKind::LoopTest, 0.1, false},
    {"simulation", false, OutputKind::Simulation, 0.0, true},
    {"mACalibrationFixedCurrent", false, OutputKind::Trim, 0.0, false},
};

}  // namespace

const OutputRule* outputRule(std::string_view item) {
  for (const OutputRule& rule : kRules)
    if (rule.isTail ? item.ends_with(rule.item) : item == rule.item) return &rule;
  return nullptr;
}

OutputValue requestedValue(std::string_view text) {
  const auto number = parseNumber(text, '.');
  if (!number) return OutputValue::NoNumber;
  return *number == 0.0 ? OutputValue::Frees : OutputValue::Forces;
}

OutputValue answeredValue(const OutputRule& rule, std::string_view text) {
  const auto number = parseNumber(text, '.');
  if (!number) return OutputValue::NoNumber;
  const bool isFree = rule.free == 0.0 ? *number == 0.0 : *number <= rule.free;
  return isFree ? OutputValue::Frees : OutputValue::Forces;
}

}  // namespace ostrand
