#pragma once

#include <cstdint>

#include "platform/base/Locale.h"
#include "simulator/Blade.h"
#include "simulator/Noise.h"

namespace ostrand {

// What flows in the pipe.
struct PulpLine {
  double consistency = 3.4;   // %Cs, around which it moves
  double swing = 0.25;        // %Cs, how far the mill's setpoint goes up and down in turn
  double flocs = 0.03;        // %Cs, unevenness of the pulp, within seconds
  double temperature = 52.0;  // degC
};

// The process at the blade, on ticks of the given clock. Every value is a function of seed and tick: nothing runs between
// two looks, and it makes no difference how often one looks. Ticks before the start are as good as later ones.
class BladeProcess {
 public:
  static constexpr double kSecondsPerTick = 0.5;

  BladeProcess(const PulpLine& line, const Blade& mounted, LocalTime start, unsigned seed)
      : mLine(line), mBlade(mounted), mStart(start), mMill(seed, 1), mFlocs(seed, 2), mSensor(seed, 3), mWarmth(seed, 4) {}

  std::int64_t tickAt(LocalTime time) const;

  double consistency(std::int64_t tick) const;  // %Cs, what the laboratory would find
  double shearForce(std::int64_t tick) const;   // N, as the converter delivers it
  double processTemperature(std::int64_t tick) const;      // degC
  double electronicsTemperature(std::int64_t tick) const;  // degC

  // How many times as uneven as usual the pulp is; in the past too, so that it shows in a sample that is running.
  void setUnsteadiness(double factor) { mUnsteadiness = factor; }

 private:
  double setpoint(std::int64_t period) const;

  PulpLine mLine;
  const Blade& mBlade;
  LocalTime mStart;
  Noise mMill;
  Noise mFlocs;
  Noise mSensor;
  Noise mWarmth;
  double mUnsteadiness = 1;
};

}  // namespace ostrand
