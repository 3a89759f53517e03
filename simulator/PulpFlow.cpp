#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

namespace {

// The mill holds a setpoint for so long, and moves to the next within so much of it. The clock starts well behind a move.
constexpr std::int64_t kPeriod = PulpFlow::ticks(300);
constexpr std::int64_t kMove = PulpFlow::ticks(40);
constexpr std::int64_t kStart = PulpFlow::ticks(100);

constexpr std::int64_t kMillisecondsPerTick = static_cast<std::int64_t>(PulpFlow::kSecondsPerTick * 1000);

}  // namespace

std::int64_t PulpFlow::tickAt(LocalTime time) const { return floorDivision((time - mStart).count(), kMillisecondsPerTick); }

LocalTime PulpFlow::timeOf(std::int64_t tick) const { return mStart + std::chrono::milliseconds(tick * kMillisecondsPerTick); }

double PulpFlow::setpoint(std::int64_t period) const {
  const double side = period % 2 == 0 ? -1 : 1;
  return mLine.consistency + mLine.swing * (side + 0.3 * mMill.uniform(period));
}

double PulpFlow::consistency(std::int64_t tick) const {
  const std::int64_t at = tick + kStart;
  const std::int64_t period = floorDivision(at, kPeriod);
  const double before = setpoint(period - 1);
  const double moved = smoothStep(static_cast<double>(at - period * kPeriod) / static_cast<double>(kMove));
  const double flocs = 0.5 * mFlocs.smooth(tick, ticks(1.5)) + mFlocs.smooth(tick + ticks(1e6), ticks(7));
  const double value = before + (setpoint(period) - before) * moved + mLine.flocs * mUnsteadiness * flocs;
  return value > 0 ? value : 0;
}

double PulpFlow::processTemperature(std::int64_t tick) const {
  return mLine.temperature + mHeat + 2.0 * mWarmth.smooth(tick, ticks(900)) + 0.05 * mWarmth.normal(tick);
}

double PulpFlow::electronicsTemperature(std::int64_t tick) const {
  return 18.0 + 0.4 * (mLine.temperature + mHeat) + mWarmth.smooth(tick, ticks(1800));
}

}  // namespace ostrand::simulator
