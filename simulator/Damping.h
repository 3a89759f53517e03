#pragma once

#include <algorithm>
#include <cstdint>

#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// A value through a first-order filter. It is summed up anew over as much of the past as still counts, so that it does not
// matter when one looked. `past(n)` is the value of n ticks ago.
template <typename Past>
double damped(double seconds, const Past& past) {
  constexpr double kStep = PulpFlow::kSecondsPerTick;
  const double damping = std::clamp(seconds, 0.0, 99.0);
  const double newest = kStep / (damping + kStep);
  const auto window = static_cast<std::int64_t>(8 * (damping / kStep + 1));
  double sum = 0;
  double weights = 0;
  double weight = newest;
  for (std::int64_t back = 0; back < window && weight > 0; ++back) {
    sum += weight * past(back);
    weights += weight;
    weight *= 1 - newest;
  }
  return sum / weights;
}

}  // namespace ostrand::simulator
