#include "simulator/LaboratoryCalibration.h"

#include <algorithm>
#include <cmath>

namespace ostrand::simulator {

Calibration calibrated(const std::vector<CalibrationPoint>& points, double presentSlope) {
  // Two points nearer to each other than this, in parts of the larger one, would only fit the noise.
  constexpr double kNearest = 0.03;
  constexpr double kFlattest = 0.4;
  constexpr double kSteepest = 2.5;
  constexpr double kFarthestOffset = 2.0;

  Calibration result{Verdict::Accepted, presentSlope, 0};
  const CalibrationPoint& first = points.front();
  if (first.laboratory <= 0 || points.back().laboratory <= 0) result.verdict = Verdict::CalibrationSuspicious;
  if (points.size() > 1) {
    const CalibrationPoint& second = points.back();
    const double span = second.measured - first.measured;
    if (std::abs(span) < kNearest * std::max(first.measured, second.measured)) return {Verdict::PointsTooClose, presentSlope, 0};
    result.slope = (second.laboratory - first.laboratory) / span;
  }
  result.offset = first.laboratory - result.slope * first.measured;
  const bool usable = result.slope >= kFlattest && result.slope <= kSteepest && std::abs(result.offset) <= kFarthestOffset;
  if (!usable) result.verdict = Verdict::CalibrationSuspicious;
  return result;
}

}  // namespace ostrand::simulator
