#pragma once

#include <array>

#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// Light through the stock of a paper machine's headbox: five lights lose intensity to fibres and to filler, each in its own
// way. On the ticks of the flow.
class OpticalProcess {
 public:
  static constexpr std::size_t kLights = 5;
  static constexpr std::array<const char*, kLights> kLightNames = {"DLed", "ALed", "SLed", "ALaser", "SLaser"};
  static constexpr bool isLaser(std::size_t light) { return light >= 3; }

  struct Stock {
    double consistency;  // %Cs, fibres and filler
    double ash;          // %, filler alone
  };

  OpticalProcess(const PulpFlow& flow, unsigned seed) : mFlow(flow), mFiller(seed, 5), mRetention(seed, 6), mSignal(seed, 7), mAge(seed, 8) {}

  Stock headbox(std::int64_t tick) const;
  Stock whiteWater(std::int64_t tick) const;  // what runs off through the wire
  double floc(std::int64_t tick) const;       // %, of the light's intensity

  // V, in the stock and in clean water.
  double voltage(std::size_t light, std::int64_t tick) const;
  double voltageInWater(std::size_t light, std::int64_t tick) const;

  // Of dirty windows: the part of the light that is missing.
  void setFouling(double part) { mFouling = part; }

 private:
  double lightSource(std::size_t light, std::int64_t tick) const;

  const PulpFlow& mFlow;
  Noise mFiller;
  Noise mRetention;
  Noise mSignal;
  Noise mAge;
  double mFouling = 0;
};

}  // namespace ostrand::simulator
