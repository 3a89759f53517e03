#pragma once

#include <cstdint>

#include "simulator/Interruption.h"
#include "simulator/ParameterTable.h"

namespace ostrand::simulator {

// The timed flushing of a blade, during which the measurement stands still.
class BladeFlushing {
 public:
  explicit BladeFlushing(const ParameterTable& table) : mTable(table) {}

  // The cycles count from here.
  void begin(std::int64_t tick) { mFrom = tick; }
  // The tick itself, or while the blade is being flushed the last one before.
  std::int64_t undisturbed(std::int64_t tick) const {
    if (mTable.key("flushingMode") != "flushingModeTimed") return tick;
    const std::int64_t interval = Interruption::ticks(60 * mTable.number("flushingInterval", 0));
    const std::int64_t length = Interruption::ticks(mTable.number("flushingTime", 0));
    return Interruption{mFrom, interval, length}.undisturbed(tick);
  }

 private:
  const ParameterTable& mTable;
  std::int64_t mFrom = 0;
};

}  // namespace ostrand::simulator
