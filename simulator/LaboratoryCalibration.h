#pragma once

#include <vector>

#include "simulator/Transmitter.h"

namespace ostrand::simulator {

struct CalibrationPoint {
  double measured;    // %Cs, before slope and offset
  double laboratory;  // %Cs
};

struct Calibration {
  Verdict verdict;
  double slope;   // P1
  double offset;  // P2, %Cs
};

// Slope and offset that bring the measurement to the laboratory's value: of two points the line through them, of one point
// the slope that is there, moved. A line that no pulp would need is suspicious.
Calibration calibrated(const std::vector<CalibrationPoint>& points, double presentSlope);

}  // namespace ostrand::simulator
