#include "recipe/CurvePoints.h"

#include <algorithm>
#include <cmath>

#include "recipe/Single.h"

namespace ostrand {

namespace {

constexpr float kEndOfAxis = 1.5f;  // Nm

float corrected(double consistency, Correction correction) { return toSingle(consistency * correction.slope + correction.offset); }

// Powers in double precision, the sum narrowed once.
float valueOf(const Coefficients& c, float torque) {
  const double x = torque;
  return toSingle(std::pow(x, 3) * c[3] + std::pow(x, 2) * c[2] + x * c[1] + c[0]);
}

std::span<float> seriesOf(std::span<float> block, int series) { return block.subspan(static_cast<std::size_t>(series) * kCurvePoints, kCurvePoints); }

}  // namespace

void drawCurve(std::span<float> torqueBlock, std::span<float> consistencyBlock, int series, const BaseCurve& curve, const Coefficients& cubic,
               Correction correction, const ShownTorque& shown) {
  const auto torque = seriesOf(torqueBlock, series), consistency = seriesOf(consistencyBlock, series);
  int first = 0, shift = 0;
  if (curve.hasEndLines()) {
    const auto put = [&](int point, float x, float a, float b) {
      torque[point] = x;
      consistency[point] = corrected(static_cast<double>(a) * x + b, correction);
    };
    put(0, 0.0f, curve.minA, curve.minB);
    put(1, curve.minTorque, curve.minA, curve.minB);
    put(48, curve.maxTorque, curve.maxA, curve.maxB);
    put(49, kEndOfAxis, curve.maxA, curve.maxB);
    first = 2;
    shift = 1;
  }
  const float step = toSingle((static_cast<double>(curve.maxTorque) - curve.minTorque) / (kCurvePoints - 1 - first));
  for (int point = 0; point < kCurvePoints; ++point) {
    float x = torque[point];
    if (point >= first && point < kCurvePoints - first) {
      x = toSingle(static_cast<double>(point - shift) * step + curve.minTorque);
      consistency[point] = corrected(valueOf(cubic, x), correction);
    }
    torque[point] = shown ? shown(x).value_or(BaseCurve::kUnset) : x;
  }
}

void clearCurve(std::span<float> torque, int series) { std::ranges::fill(seriesOf(torque, series), BaseCurve::kUnset); }

}  // namespace ostrand
