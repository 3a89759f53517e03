#include "simulator/BladeProcess.h"

#include <cmath>

namespace ostrand {

namespace {

constexpr std::int64_t ticks(double seconds) { return static_cast<std::int64_t>(seconds / BladeProcess::kSecondsPerTick); }

// The mill holds a setpoint for so long, and moves to the next within so much of it. The clock starts well behind a move.
constexpr std::int64_t kPeriod = ticks(300);
constexpr std::int64_t kMove = ticks(40);
constexpr std::int64_t kStart = ticks(100);

// The pulp is never quite the one of the tables, and the seal of the blade's shaft takes a little force too: until it is
// calibrated the transmitter shows some per cent too much.
constexpr double kPulpFactor = 1.05;
constexpr double kSealForce = 0.35;

constexpr double kSensorNoise = 0.12;  // N

}  // namespace

std::int64_t BladeProcess::tickAt(LocalTime time) const {
  constexpr std::int64_t kMillisecondsPerTick = static_cast<std::int64_t>(kSecondsPerTick * 1000);
  return floorDivision((time - mStart).count(), kMillisecondsPerTick);
}

double BladeProcess::setpoint(std::int64_t period) const {
  const double side = period % 2 == 0 ? -1 : 1;
  return mLine.consistency + mLine.swing * (side + 0.3 * mMill.uniform(period));
}

double BladeProcess::consistency(std::int64_t tick) const {
  const std::int64_t at = tick + kStart;
  const std::int64_t period = floorDivision(at, kPeriod);
  const double before = setpoint(period - 1);
  const double moved = smoothStep(static_cast<double>(at - period * kPeriod) / static_cast<double>(kMove));
  const double flocs = 0.5 * mFlocs.smooth(tick, ticks(1.5)) + mFlocs.smooth(tick + ticks(1e6), ticks(7));
  const double value = before + (setpoint(period) - before) * moved + mLine.flocs * mUnsteadiness * flocs;
  return value > 0 ? value : 0;
}

double BladeProcess::shearForce(std::int64_t tick) const {
  const double force = mBlade.shearForce(consistency(tick), kPulpFactor) + kSealForce + kSensorNoise * mSensor.normal(tick);
  return std::floor((force > 0 ? force : 0) * 1e4 + 0.5) / 1e4;
}

double BladeProcess::processTemperature(std::int64_t tick) const {
  return mLine.temperature + 2.0 * mWarmth.smooth(tick, ticks(900)) + 0.05 * mWarmth.normal(tick);
}

double BladeProcess::electronicsTemperature(std::int64_t tick) const {
  return 18.0 + 0.4 * mLine.temperature + mWarmth.smooth(tick, ticks(1800));
}

}  // namespace ostrand
