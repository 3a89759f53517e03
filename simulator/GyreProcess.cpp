#include "simulator/GyreProcess.h"

#include <cmath>

namespace ostrand::simulator {

namespace {

// The pulp is never quite the one of the curves: with this slope and this offset the transmitter would read it right.
constexpr double kSlope = 1.12;
constexpr double kOffset = -0.40;  // %Cs

constexpr double kWater = 0.048;        // Nm
constexpr double kBearing = 0.001;      // Nm, how far the bearing takes more or less of it
constexpr double kSensorNoise = 0.004;  // Nm

double asDelivered(double torque) { return std::floor(torque * 1e5 + 0.5) / 1e5; }

}  // namespace

double GyreProcess::torqueInWater(std::int64_t tick) const {
  return asDelivered((1 - mWear) * (kWater + kBearing * mBearing.smooth(tick, PulpFlow::ticks(3600))));
}

double GyreProcess::torque(std::int64_t tick, const Pulp& pulp) const {
  const double fibres = mFlow.consistency(tick) * (1 - pulp.filler);
  const double ofPulp = pulp.curve.torque((fibres - kOffset) / kSlope) + kSensorNoise * mSensor.normal(tick);
  return asDelivered(torqueInWater(tick) + (1 - mWear) * ofPulp);
}

}  // namespace ostrand::simulator
