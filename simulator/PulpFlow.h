#pragma once

#include <cstdint>

#include "platform/base/Locale.h"
#include "simulator/Noise.h"

namespace ostrand::simulator {

// What flows in the pipe.
struct PulpLine {
  double consistency = 3.4;   // %Cs, around which it moves
  double swing = 0.25;        // %Cs, how far the mill's setpoint goes up and down in turn
  double flocs = 0.03;        // %Cs, unevenness of the pulp, within seconds
  double temperature = 52.0;  // degC
};

// The pulp in the pipe, on ticks of the given clock. Every value is a function of seed and tick: nothing runs between two
// looks, and it makes no difference how often one looks. Ticks before the start are as good as later ones.
class PulpFlow {
 public:
  static constexpr double kSecondsPerTick = 0.5;
  static constexpr std::int64_t ticks(double seconds) { return static_cast<std::int64_t>(seconds / kSecondsPerTick); }

  PulpFlow(const PulpLine& line, LocalTime start, unsigned seed) : mLine(line), mStart(start), mMill(seed, 1), mFlocs(seed, 2), mWarmth(seed, 4) {}

  std::int64_t tickAt(LocalTime time) const;
  LocalTime timeOf(std::int64_t tick) const;

  double consistency(std::int64_t tick) const;             // %Cs, what the laboratory would find
  double processTemperature(std::int64_t tick) const;      // degC
  double electronicsTemperature(std::int64_t tick) const;  // degC, of a transmitter that sits on the pipe

  // Both in the past too, so that they show in a sample that is running.
  void setUnsteadiness(double factor) { mUnsteadiness = factor; }  // how many times as uneven as usual the pulp is
  double unsteadiness() const { return mUnsteadiness; }
  void setHeat(double degrees) { mHeat = degrees; }  // K, above the usual temperature

 private:
  double setpoint(std::int64_t period) const;

  PulpLine mLine;
  LocalTime mStart;
  Noise mMill;
  Noise mFlocs;
  Noise mWarmth;
  double mUnsteadiness = 1;
  double mHeat = 0;
};

}  // namespace ostrand::simulator
