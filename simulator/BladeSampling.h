#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "simulator/BladeCurve.h"
#include "simulator/BladeFlushing.h"
#include "simulator/BladeProcess.h"
#include "simulator/EventLog.h"
#include "simulator/PulpFlow.h"

namespace ostrand::simulator {

// Samples 1 and 2 of a blade transmitter, and the laboratory calibration by them.
class BladeSampling {
 public:
  // When something is asked of it, and whether the sensor delivers nothing then.
  struct Moment {
    std::int64_t tick;
    bool isBlind;
  };

  // All must outlive it.
  BladeSampling(ParameterTable& table, EventLog& log, const BladeCurve& curve, const BladeFlushing& flushing, const BladeProcess& process,
                const PulpFlow& flow)
      : mTable(table), mLog(log), mCurve(curve), mFlushing(flushing), mProcess(process), mFlow(flow) {}

  // 0 if none is running.
  int running() const { return mRunning; }
  // A start ends the sample that is running; stopping one that is not running does nothing.
  void start(int number, const Moment& now);
  void stop(int number, const Moment& now);
  // Of the sample that is running, the average so far.
  void show(const Moment& now) { showAverage(average(now)); }
  // The samples are not kept without power.
  void forget();
  // %Cs, what the laboratory would find in the sample; nothing if it has not been taken.
  std::optional<double> laboratoryValue(int sample) const;

  // Slope and offset of the recipe by the samples and their laboratory values.
  Judgement calibrate();

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

  Average average(const Moment& now) const;
  void showAverage(const Average& average);
  std::optional<Sample>& sample(int number) { return mSamples[static_cast<std::size_t>(number - 1)]; }

  ParameterTable& mTable;
  EventLog& mLog;
  const BladeCurve& mCurve;
  const BladeFlushing& mFlushing;
  const BladeProcess& mProcess;
  const PulpFlow& mFlow;
  int mRunning = 0;
  std::int64_t mStart = 0;
  std::array<std::optional<Sample>, 2> mSamples;
};

}  // namespace ostrand::simulator
