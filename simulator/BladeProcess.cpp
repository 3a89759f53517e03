#include "simulator/BladeProcess.h"

#include <cmath>

namespace ostrand::simulator {

namespace {

// The pulp is never quite the one of the tables, and the seal of the blade's shaft takes a little force too: until it is
// calibrated the transmitter shows some per cent too much.
constexpr double kPulpFactor = 1.05;
constexpr double kSealForce = 0.35;

constexpr double kSensorNoise = 0.12;  // N

}  // namespace

double BladeProcess::shearForce(std::int64_t tick) const {
  const double all = mBlade.shearForce(mFlow.consistency(tick), kPulpFactor) + kSealForce + kSensorNoise * mSensor.normal(tick);
  const double force = all * (1 - mWear);
  return std::floor((force > 0 ? force : 0) * 1e4 + 0.5) / 1e4;
}

}  // namespace ostrand::simulator
