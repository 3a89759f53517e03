#pragma once

#include <array>

#include "simulator/BasicTransmitter.h"
#include "simulator/CurrentOutput.h"
#include "simulator/Interruption.h"
#include "simulator/OpticalProcess.h"

namespace ostrand::simulator {

// An optical transmitter of six channels, each with a range, a damping and a current output of its own. How much less light
// arrives than in clean water, weighted by the formulas of the grade in force, is the consistency and the ash of the stock;
// the same of the white water gives the retentions.
//
// It looks at clean water at intervals: the outputs stand still meanwhile, and what it finds goes into a filtered value for
// each light. A filtered value beyond its limits raises a bit.
//
// The value of a loop test drives the output of its channel alone, 0 lets it follow again.
class OpticalTransmitter : public BasicTransmitter {
 public:
  OpticalTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed);

  void look() override;

 private:
  static constexpr std::size_t kChannels = 6;
  using PerChannel = std::array<double, kChannels>;
  using PerLight = std::array<double, OpticalProcess::kLights>;

  Judgement judge(std::string_view command, const std::vector<Writing>& writings) override;
  void takeEffect(const Writing& writing) override;
  void hold() override;
  void powerUp() override;
  void setDrift(double part) override { mProcess.setFouling(part); }

  Interruption waterMeasurement() const;
  bool isDark(std::size_t light) const;
  // What was found in water up to the last measurement. The filtered values, V.
  PerLight showWaterValues();
  // By the grade in force, against these voltages in water.
  PerChannel measured(std::int64_t tick, const PerLight& inWater) const;
  void showMeasurement(const PerLight& inWater);
  CurrentOutput output(std::size_t channel) const;
  void showStatus(const std::array<CurrentOutput, kChannels>& outputs);

  OpticalProcess mProcess;
  std::int64_t mWaterFrom = 0;  // from where the water measurements count
  PerChannel mLoopTests{};      // mA, 0 without a test
  PerChannel mLastCurrents{};   // mA, before the first failure; until then as in the data set
};

}  // namespace ostrand::simulator
