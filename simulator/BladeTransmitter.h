#pragma once

#include <array>
#include <set>

#include "platform/desktop/Desktop.h"
#include "simulator/BladeProcess.h"
#include "simulator/EventLog.h"
#include "simulator/Transmitter.h"

namespace ostrand {

// A blade transmitter: the shear force on its blade becomes a consistency by the curve of the active recipe,
//   consistency = slope * (force by blade and pulp type, corrected for filler and special grade) + offset,
// is damped, and drives the output. Samples average it, and a laboratory calibration turns their averages into a recipe's
// slope and offset. What a device has of all this is what its data set has parameters for.
class BladeTransmitter : public Transmitter {
 public:
  struct Settings {
    PulpLine line;
    bool readEndsSample;  // or else only stopSample does
  };

  BladeTransmitter(const Desktop& desktop, const Document& dataSet, const Settings& settings, unsigned seed);

  const ParameterTable& parameters() const override { return mTable; }
  void look() override;
  std::string read(const Parameter& parameter) override;
  Judgement write(std::string_view command, const std::vector<Writing>& writings) override;
  bool setFault(std::string_view name, std::string_view argument) override;
  std::optional<double> laboratoryValue(int sample) const override;

  // Samples 1 and 2. A start ends the sample that is running; stopping one that is not running does nothing.
  void startSample(int number);
  void stopSample(int number);

 private:
  struct Sample {
    double shearForce;  // N, average
    double laboratory;  // %Cs
  };
  struct Output {
    double percent;
    double current;  // mA
    bool isFixed, isSaturated;
  };

  std::int64_t now() const { return mProcess.tickAt(mDesktop.now()); }
  // %Cs of a force. `linearInput` is what slope and offset of the recipe are applied to.
  double linearInput(int recipe, double shearForce) const;
  double reading(int recipe, double shearForce) const;
  double specialGradeOffset(double consistency) const;
  double dampedForce(std::int64_t tick) const;
  int activeRecipe() const;

  Judgement judge(std::string_view command, const std::vector<Writing>& writings);
  Verdict verdictOnRecipe(int recipe) const;
  Verdict verdictOnSpecialGrade() const;
  Judgement calibrate();
  void takeEffect(const Writing& writing);

  bool failed(std::string_view what) const { return mFailures.contains(what); }
  bool isFailSafe() const;
  void showMeasurement();
  Output output(double consistency) const;
  void showStatus(const Output& output);
  void raise(std::string_view name, bool condition);
  bool isOutOfLimits(std::string_view name) const;

  const Desktop& mDesktop;
  ParameterTable mTable;
  EventLog mLog;
  BladeProcess mProcess;
  bool mReadEndsSample;

  int mRunningSample = 0;
  std::int64_t mSampleStart = 0;
  std::array<std::optional<Sample>, 2> mSamples;

  double mLoopTest = 0;      // mA, 0 without a test
  double mFixedCurrent = 0;  // mA, 0 if the output follows
  double mProcessCorrection = 0;      // degC
  double mElectronicsCorrection = 0;  // degC
  double mLastConsistency = 0;        // before the first failure
  double mLastCurrent = 0;
  std::set<std::string, std::less<>> mFailures;
  bool mIsWriteProtected = false;
  bool mIsColdStart = true;
  bool mIsConfigurationChanged = false;
  bool mIsMoreStatus = false;
};

}  // namespace ostrand
