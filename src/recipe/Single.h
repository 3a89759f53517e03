#pragma once

#include <cmath>

#include "platform/base/RuntimeError.h"

// The transmitter and its charts know single precision only; what does not fit is error 6.
namespace ostrand {

inline double requireFinite(double value) {
  if (!std::isfinite(value)) throw RuntimeError(RuntimeError::Overflow, "the number is too large");
  return value;
}

inline float toSingle(double value) { return static_cast<float>(requireFinite(static_cast<float>(value))); }

}  // namespace ostrand
