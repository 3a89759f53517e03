#pragma once

#include "simulator/GyreCurves.h"
#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// The torque that the pulp leaves on the sensor that turns in it, on the ticks of the flow.
class GyreProcess {
 public:
  // A pulp as its curve knows it, and how much of its consistency is filler, which leaves no torque.
  struct Pulp {
    GyreCurve curve;
    double filler = 0;  // part
  };

  GyreProcess(const PulpFlow& flow, unsigned seed) : mFlow(flow), mSensor(seed, 9), mBearing(seed, 10) {}

  // Nm, as the sensor delivers it: of the pulp and of the water that it swims in.
  double torque(std::int64_t tick, const Pulp& pulp) const;
  double torqueInWater(std::int64_t tick) const;

  // Of a worn sensor: the part of the torque that is missing.
  void setWear(double part) { mWear = part; }

 private:
  const PulpFlow& mFlow;
  Noise mSensor;
  Noise mBearing;
  double mWear = 0;
};

}  // namespace ostrand::simulator
