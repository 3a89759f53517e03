#pragma once

#include "benchmarks/Works.h"

namespace ostrand::bench {

// By Ostrand: the view's part of a whole laboratory calibration on its clock, from the first click to the last answer, reading
// included; neither device nor bus is in it. By libxml2: the reading of the same answers, and no more.
Work calibration(By by, const std::string& device);

// The bytes of heap of a calibration view that has held so many calibrations.
double bytesAfterCalibrations(int count);

}  // namespace ostrand::bench
