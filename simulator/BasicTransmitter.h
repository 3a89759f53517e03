#pragma once

#include <initializer_list>
#include <map>
#include <set>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "simulator/EventLog.h"
#include "simulator/PulpFlow.h"
#include "simulator/Transmitter.h"

namespace ostrand::simulator {

// What a transmitter does, whatever it measures: it keeps its memory, takes a write over as a whole or not at all, and
// watches itself. What a device has of all this is what its data set has parameters for.
class BasicTransmitter : public Transmitter {
 public:
  BasicTransmitter(const BasicTransmitter&) = delete;
  BasicTransmitter& operator=(const BasicTransmitter&) = delete;

  const ParameterTable& parameters() const override { return mTable; }
  bool hasCommandFor(const Parameter& parameter) const override { return !mLacking.contains(parameter.name); }
  void beginRead(const std::vector<const Parameter*>&) override {}
  std::string read(const Parameter& parameter) override;
  Judgement foresee(std::string_view command, const std::vector<Writing>& writings) override;
  Judgement write(std::string_view command, const std::vector<Writing>& writings) override;
  std::vector<std::string> alsoTold(const std::vector<Writing>&) const override { return {}; }
  void judged(std::string_view, const Judgement&) override {}
  bool setFault(std::string_view name, std::string_view argument) override;
  std::optional<double> laboratoryValue(int) const override { return std::nullopt; }

 protected:
  struct Part {
    std::string_view name, status, event;
    bool stopsMeasurement;  // without it nothing is measured
  };
  struct Limit {
    std::string_view measured, status, event;
  };
  struct BusStatus {
    bool isPrimaryOut, isOtherOut;  // of the limits
    bool isCurrentSaturated, isCurrentFixed;
  };

  // `parts` are those that this kind has beside the ones that every transmitter has.
  BasicTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed, std::vector<Part> parts);

  std::int64_t now() const { return mFlow.tickAt(mDesktop.now()); }

  // --- What differs from kind to kind

  // The verdict on a write, on a memory that looks as it would after it. A refusal puts the memory back.
  virtual Judgement judge(std::string_view command, const std::vector<Writing>& writings) = 0;
  virtual void refused(std::string_view, const std::vector<Writing>&, const Judgement&) {}
  virtual void takeEffect(const Writing& writing) = 0;
  // The last moment before a part fails: what is held from then on is what is there now.
  virtual void hold() = 0;
  // What is lost without power.
  virtual void powerUp();
  // How much less than it should the sensor delivers, in parts.
  virtual void setDrift(double part) = 0;

  // Two numbers that lie too near to each other, or the wrong way round. Missing ones are 0.
  bool isTooNarrow(std::string_view lower, std::string_view upper, double leastSpan) const;

  // --- Self-monitoring

  bool failed(std::string_view part) const { return mFailures.contains(part); }
  // The measurement is replaced by what is configured for a failure.
  bool isFailSafe() const;
  // Beyond minVal or maxVal of the parameter.
  bool isOutOfLimits(std::string_view name) const;
  void showTemperatures(std::int64_t tick, double processCorrection, double electronicsCorrection);
  void raise(std::string_view status, bool condition);
  // The bits of the parts, of these limits and of the temperatures; true if one of the limits is passed. Comes before any
  // other bit is raised.
  bool watch(std::initializer_list<Limit> limits);
  // The bits that HART has, which sum up all others.
  void showBusStatus(const BusStatus& status);

  const Desktop& mDesktop;
  ParameterTable mTable;
  EventLog mLog;
  PulpFlow mFlow;

 private:
  // An empty text stands for the software that the data set tells of.
  void setSoftware(std::string_view revision);
  // Leaves the memory as it would be after the write, refused or not.
  Judgement tryOut(std::string_view command, const std::vector<Writing>& writings);

  std::vector<Part> mParts;
  std::set<std::string, std::less<>> mFailures;
  std::set<std::string, std::less<>> mLacking;   // parameters without a command
  std::map<std::string, std::string> mSoftware;  // of the data set, by the name of the parameter that tells of it
  bool mIsWriteProtected = false;
  bool mIsColdStart = true;
  bool mIsConfigurationChanged = false;
  bool mIsMoreStatus = false;
};

}  // namespace ostrand::simulator
