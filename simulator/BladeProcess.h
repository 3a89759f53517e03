#pragma once

#include "simulator/Blade.h"
#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// The force that the pulp leaves on the blade, on the ticks of its flow.
class BladeProcess {
 public:
  BladeProcess(const PulpFlow& flow, const Blade& mounted, unsigned seed) : mFlow(flow), mBlade(mounted), mSensor(seed, 3) {}

  double shearForce(std::int64_t tick) const;  // N, as the converter delivers it

  // Of a worn blade: the part of the force that is missing.
  void setWear(double part) { mWear = part; }

 private:
  const PulpFlow& mFlow;
  const Blade& mBlade;
  Noise mSensor;
  double mWear = 0;
};

}  // namespace ostrand::simulator
