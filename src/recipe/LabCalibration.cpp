#include "recipe/LabCalibration.h"

#include "recipe/Single.h"

namespace ostrand {

namespace {

CalibrationLine through(LabPoint point, double slope) { return {slope, requireFinite(point.laboratory - slope * point.uncompensated)}; }

}  // namespace

double fillerCorrected(double laboratory, double filler) {
  constexpr double kNoFiller = 0.001;
  return filler > kNoFiller ? requireFinite((100.0 - filler) * laboratory / 100.0) : laboratory;
}

CalibrationLine calibrateOnePoint(LabPoint point, double slope) { return through(point, slope); }

TwoPointCalibration calibrateTwoPoints(LabPoint first, LabPoint second) {
  constexpr double kMostOfDistance = 4.0;
  const double distance = requireFinite(second.uncompensated - first.uncompensated);
  if (distance == 0.0) return {.tooClose = true, .line = {}};
  // No absolute value is taken: with the larger reading first it never warns.
  const bool tooClose = first.uncompensated / distance > kMostOfDistance || second.uncompensated / distance > kMostOfDistance;
  const double slope = requireFinite((second.laboratory - first.laboratory) / distance);
  return {tooClose, through(first.laboratory < second.laboratory ? first : second, slope)};
}

double residual(LabPoint point, CalibrationLine line) { return point.laboratory - line.at(point.uncompensated); }

}  // namespace ostrand
