#pragma once

#include <algorithm>
#include <cstdint>

#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// A measurement that stands still at intervals, for flushing or to look at water. In ticks.
struct Interruption {
  std::int64_t from;      // where the first interval begins
  std::int64_t interval;  // from one interruption to the next
  std::int64_t length;

  static std::int64_t ticks(double seconds) { return PulpFlow::ticks(std::clamp(seconds, 0.0, 1e6)); }

  std::int64_t cycle() const { return interval + length; }
  // The tick itself, or within an interruption the last one before it.
  std::int64_t undisturbed(std::int64_t tick) const {
    if (tick < from || cycle() <= 0) return tick;
    const std::int64_t within = (tick - from) % cycle();
    return within < interval ? tick : tick - (within - interval) - 1;
  }
  // Where the last interruption before the tick ended; the first interval begins with the end of one too.
  std::int64_t lastEnd(std::int64_t tick) const { return tick < from || cycle() <= 0 ? from : tick - (tick - from) % cycle(); }
};

}  // namespace ostrand::simulator
