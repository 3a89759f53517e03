#pragma once

#include "simulator/ConsistencyTransmitter.h"
#include "simulator/GyreHistory.h"
#include "simulator/GyreProcess.h"
#include "simulator/GyreSampling.h"

namespace ostrand::simulator {

// A GYRE transmitter: the torque on its sensor becomes a consistency by the curve of the active recipe (GyreRecipe), is damped,
// and drives the output. What it samples it keeps (GyreHistory), for others to find slope and offset by:
//
//   host    read sampleStart                              a sample begins
//   host    read activeRecipe, sampleTime, sampleConsistency, sampleTorque, sampleProcessTemperature
//                                                         it ends, is answered with, and is a record of the active recipe
//   host    read recipe1                                  its values, and in an answer of its own recipe1SampleCount
//   host    write recipe1sampleHistory                    a half of a record comes back
//   host    write recipe1sample1: historyRecipe 1, historyId 20, historyLabConsistency 5.12, historyLabFiller 0
//   host    write recipe1: recipe1LinearizationSlopeP1, recipe1LinearizationOffsetP2, recipe1CurveType, ...
//                                                         it measures by them from then on
//   host    write activeRecipe; read activeRecipeCalibrated
//                                                         0 if the recipe has no curve: then it measures by the general one
//
// A recipe whose curve is that of a pulp bears one name for both: what is written of them is written of the other too. Slope
// and offset count for a torque without that of the water, which record 0 of the history tells. Software 1.65 and 1.66 leaves
// it in the torques that it tells, unless its torque control unit is of a revision with another minor number than 0; a unit
// that cannot be asked is of revision 0.
class GyreTransmitter : public ConsistencyTransmitter {
 public:
  GyreTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed);

  void beginRead(const std::vector<const Parameter*>& asked) override;
  std::string read(const Parameter& parameter) override;
  std::vector<std::string> alsoTold(const std::vector<Writing>& writings) const override { return GyreHistory::alsoTold(writings); }
  // Of the record of the active recipe that has this number.
  std::optional<double> laboratoryValue(int sample) const override;

 private:
  Judgement judge(std::string_view command, const std::vector<Writing>& writings) override;
  void takeEffect(const Writing& writing) override;
  void powerUp() override;
  void setDrift(double part) override { mProcess.setWear(part); }
  double measure() override;
  bool isSampling() const override { return mSampling.isRunning(); }

  bool isBlind() const { return failed("sensor") || failed("motor"); }
  bool leavesWaterIn() const;
  GyreRecipe recipe(int number) const { return GyreRecipe::of(number, mTable, mHistory); }
  GyreSampling::Moment moment() const { return {now(), isBlind()}; }
  // A curve and a pulp that do not belong together, or to this sensor.
  Judgement verdictOnCurves(const std::vector<Writing>& writings) const;
  void followCurve(const Writing& writing);

  GyreHistory mHistory;
  GyreProcess mProcess;
  GyreProcess::Pulp mPulp;
  GyreSampling mSampling;
};

}  // namespace ostrand::simulator
