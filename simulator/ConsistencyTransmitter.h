#pragma once

#include "simulator/BasicTransmitter.h"
#include "simulator/ConsistencyOutput.h"

namespace ostrand::simulator {

// A transmitter of one consistency, which drives one output. What it measures with is its own; what becomes of the value, how
// the output is tested and trimmed, and how the temperatures are corrected is the same for all.
class ConsistencyTransmitter : public BasicTransmitter {
 public:
  void look() override;

 protected:
  // `parts` and `limit` are of the sensor.
  ConsistencyTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed, std::vector<Part> parts, Limit limit);

  // --- What differs from kind to kind

  // Shows what the sensor delivers; the damped consistency, %Cs.
  virtual double measure() = 0;
  // When the value that is shown was measured: now, or before an interruption.
  virtual std::int64_t measuringTick() const { return now(); }
  virtual bool isSampling() const = 0;

  // --- Writes: what all kinds have

  // On a value by itself.
  Verdict verdictOn(const Writing& writing) const;
  // On the range, if it is written.
  Judgement verdictOnRange(const std::vector<Writing>& writings) const;
  void takeEffect(const Writing& writing) override;
  void hold() override { mOutput.keepLast(); }
  void powerUp() override;

 private:
  void showStatus(const CurrentOutput& current);

  Limit mLimit;
  ConsistencyOutput mOutput;
  double mProcessCorrection = 0;      // degC
  double mElectronicsCorrection = 0;  // degC
};

}  // namespace ostrand::simulator
