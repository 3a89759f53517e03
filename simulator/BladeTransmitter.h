#pragma once

#include <optional>

#include "simulator/ActionStatus.h"
#include "simulator/BladeCurve.h"
#include "simulator/BladeFlushing.h"
#include "simulator/BladeProcess.h"
#include "simulator/BladeSampling.h"
#include "simulator/ConsistencyTransmitter.h"

namespace ostrand::simulator {

// A blade transmitter: the shear force on its blade becomes a consistency by the curve of the active recipe (BladeCurve), is
// damped, and drives the output. Samples average it, and a laboratory calibration turns their averages into a
// recipe's slope and offset (BladeSampling).
class BladeTransmitter : public ConsistencyTransmitter {
 public:
  // On HART a write is refused at once, and a read of a sample's own values ends it. On PROFIBUS samples are started and
  // stopped by actions, and every write leaves an action status.
  enum class Bus { Hart, Profibus };

  struct Settings {
    Bus bus;
    PulpLine line = {};
    std::string_view blade = {};  // key of the blade that is built in, if the data set has no `bladeType`
  };

  BladeTransmitter(const Desktop& desktop, const Document& dataSet, const Settings& settings, unsigned seed);

  void beginRead(const std::vector<const Parameter*>& asked) override;
  std::string read(const Parameter& parameter) override;
  void judged(std::string_view command, const Judgement& judgement) override;
  std::optional<double> laboratoryValue(int sample) const override { return mSampling.laboratoryValue(sample); }

 private:
  Judgement judge(std::string_view command, const std::vector<Writing>& writings) override;
  void refused(std::string_view command, const std::vector<Writing>& writings, const Judgement& judgement) override;
  void takeEffect(const Writing& writing) override;
  void powerUp() override;
  void setDrift(double part) override { mProcess.setWear(part); }
  double measure() override;
  std::int64_t measuringTick() const override { return mFlushing.undisturbed(now()); }
  bool isSampling() const override { return mSampling.running() != 0; }

  BladeSampling::Moment moment() const { return {now(), failed("sensor")}; }
  double dampedForce(std::int64_t tick) const;
  Verdict verdictOnAction(int action) const;
  void execute(int action);

  Bus mBus;
  BladeCurve mCurve;
  BladeProcess mProcess;
  BladeFlushing mFlushing;
  BladeSampling mSampling;
  std::optional<ActionStatus> mActionStatus;
};

}  // namespace ostrand::simulator
