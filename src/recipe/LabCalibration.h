#pragma once

#include <optional>

// How laboratory results become P1 and P2. All in double precision; what does not fit is error 6, before anything is changed.
namespace ostrand {

// A sample: what the laboratory found, without the filler, and what the device read of it before P1 and P2.
struct LabPoint {
  double laboratory;
  double uncompensated;
};

struct CalibrationLine {
  double slope;   // P1
  double offset;  // P2
  double at(double uncompensated) const { return slope * uncompensated + offset; }
};

// The laboratory's value less the filler, which the transmitter does not feel. Up to 0.001 % the filler counts as none.
double fillerCorrected(double laboratory, double filler);

// The slope stays, the offset moves the curve through the point.
CalibrationLine calibrateOnePoint(LabPoint point, double slope);

struct TwoPointCalibration {
  // The points lie too close together for their size. That is a warning only: the line is there all the same.
  bool tooClose = false;
  // Nothing where the device read the same of both.
  std::optional<CalibrationLine> line;
};
// The line through both; the point with the lower laboratory value anchors it, of equal ones the second.
TwoPointCalibration calibrateTwoPoints(LabPoint first, LabPoint second);

// How far the laboratory lies above what the curve makes of the sample with this P1 and P2.
double residual(LabPoint point, CalibrationLine line);

}  // namespace ostrand
