#pragma once

#include <array>

#include "simulator/ActionStatus.h"
#include "simulator/BasicTransmitter.h"
#include "simulator/BladeProcess.h"
#include "simulator/CurrentOutput.h"
#include "simulator/Interruption.h"

namespace ostrand {

// A blade transmitter: the shear force on its blade becomes a consistency by the curve of the active recipe,
//   consistency = slope * (force by blade and pulp type, corrected for filler and special grade) + offset,
// is damped, and drives the output. Samples average it, and a laboratory calibration turns their averages into a recipe's
// slope and offset. On PROFIBUS a function block stands between the measurement and the master: it simulates, holds, or is
// out of service.
class BladeTransmitter : public BasicTransmitter {
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

  void look() override;
  void beginRead(const std::vector<const Parameter*>& asked) override;
  std::string read(const Parameter& parameter) override;
  void judged(std::string_view command, const Judgement& judgement) override;
  std::optional<double> laboratoryValue(int sample) const override;

 private:
  struct Sample {
    double shearForce;  // N, average
    double laboratory;  // %Cs
  };
  struct Average {
    double shearForce;   // N
    double laboratory;   // %Cs
    double consistency;  // %Cs, by the active recipe
    double deviation;    // %Cs
    bool isEmpty;
  };

  Judgement judge(std::string_view command, const std::vector<Writing>& writings) override;
  void refused(std::string_view command, const std::vector<Writing>& writings, const Judgement& judgement) override;
  void takeEffect(const Writing& writing) override;
  void hold() override;
  void holdOutput();
  void powerUp() override;
  void setDrift(double part) override { mProcess.setWear(part); }

  const Blade& blade() const { return Blade::of(mTable.find("bladeType") ? mTable.key("bladeType") : mBuiltInBlade); }
  // The tick itself, or while the blade is being flushed the last one before.
  std::int64_t undisturbed(std::int64_t tick) const;
  bool isSimulated() const { return mTable.key("simulation") == "on"; }
  // By hand or out of service: what goes out does not follow the measurement.
  bool isHeld() const { return mTable.key("actualMode") == "modeManual" || mTable.key("actualMode") == "modeOutOfService"; }
  // %Cs of a force. `linearInput` is what slope and offset of the recipe are applied to.
  double linearInput(int recipe, double shearForce) const;
  double reading(int recipe, double shearForce) const;
  double specialGradeOffset(double consistency) const;
  double dampedForce(std::int64_t tick) const;
  int activeRecipe() const;

  // Samples 1 and 2. A start ends the sample that is running; stopping one that is not running does nothing.
  void startSample(int number);
  void stopSample(int number);
  Average average() const;
  void showSample(const Average& average);

  Verdict verdictOnRecipe(int recipe) const;
  Verdict verdictOnSpecialGrade() const;
  Verdict verdictOnAction(int action) const;
  Judgement calibrate();
  void execute(int action);

  void showMeasurement();
  CurrentOutput output(double consistency) const;
  // -1 below, 1 above, else 0.
  int sideOfSensorLimits(double consistency) const;
  void showFunctionBlock();
  void showStatus(const CurrentOutput& output);

  std::string_view mBuiltInBlade;
  BladeProcess mProcess;
  Bus mBus;
  std::optional<ActionStatus> mActionStatus;

  int mRunningSample = 0;
  std::int64_t mSampleStart = 0;
  std::array<std::optional<Sample>, 2> mSamples;

  std::int64_t mFlushingFrom = 0;  // from where the cycles of the flushing count

  double mLoopTest = 0;               // mA, or %Cs without a current output; 0 without a test
  double mFixedCurrent = 0;           // mA, 0 if the output follows
  double mProcessCorrection = 0;      // degC
  double mElectronicsCorrection = 0;  // degC
  double mLastConsistency = 0;        // %Cs, before the first failure
  double mLastCurrent = 0;            // mA, likewise
  double mHeldOutput = 0;             // %Cs, what goes out while it is held
};

}  // namespace ostrand
