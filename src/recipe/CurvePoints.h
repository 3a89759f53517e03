#pragma once

#include <functional>
#include <optional>
#include <span>

#include "recipe/BaseCurve.h"

namespace ostrand {

inline constexpr int kCurvePoints = 50;  // of one series; point p of series s stands at s * 50 + p of a block

// P1 and P2.
struct Correction {
  float slope = 1.0f;
  float offset = 0.0f;
};

// The torque as the chart shows it, of a torque in Nm; nothing where it cannot be converted.
using ShownTorque = std::function<std::optional<float>(float)>;

// Writes one series into both blocks: the cubic over the range of `curve`, with end lines also one point at torque 0, one at
// each end of the range and one at 1.5 Nm. The ends of the range are those of the lines, so a jump between line and cubic is
// drawn as the relations give it. `cubic` need not be the curve's own: a typed polynome runs over its range too. Without
// `shown` the torque stays in Nm; a torque that cannot be shown becomes the null value.
// A point too large for single precision is error 6: the points before it are written.
void drawCurve(std::span<float> torque, std::span<float> consistency, int series, const BaseCurve& curve, const Coefficients& cubic,
               Correction correction, const ShownTorque& shown = {});

// Fills the torque of one series with the null value, which draws nothing.
void clearCurve(std::span<float> torque, int series);

}  // namespace ostrand
