#pragma once

#include <cstdint>

#include "simulator/EventLog.h"
#include "simulator/GyreHistory.h"
#include "simulator/GyreProcess.h"

namespace ostrand::simulator {

// The sample that a GYRE transmitter takes: an average from its start to its end, which then stands in the history of the
// recipe that is active.
class GyreSampling {
 public:
  // When something is asked of it, and whether the sensor delivers nothing then.
  struct Moment {
    std::int64_t tick;
    bool isBlind;
  };

  // All must outlive it. The pulp is what flows in the pipe.
  GyreSampling(ParameterTable& table, EventLog& log, GyreHistory& history, const GyreProcess& process, const PulpFlow& flow,
               const GyreProcess::Pulp& pulp)
      : mTable(table), mLog(log), mHistory(history), mProcess(process), mFlow(flow), mPulp(pulp) {}

  // The samples that the memory promises were taken before the clock started, each of its recipe's pulp. The laboratory has
  // not come to the newest yet.
  void takeThoseOfThePast(unsigned seed);

  bool isRunning() const { return mIsRunning; }
  // A sample that is running begins anew; stopping none does nothing.
  void start(const Moment& now);
  void stop(const Moment& now);
  // Of the sample that is running, the average so far.
  void show(const Moment& now);
  // A sample that is running is lost without power.
  void forget() { mIsRunning = false; }

 private:
  struct Span {
    std::int64_t first, last;
  };

  GyreHistory::Record average(const Span& span, const GyreProcess::Pulp& pulp, const GyreRecipe& recipe) const;
  GyreRecipe recipe(int number) const { return GyreRecipe::of(number, mTable, mHistory); }
  Span soFar(std::int64_t tick) const;
  void showNothing();
  void show(const GyreHistory::Record& record);

  ParameterTable& mTable;
  EventLog& mLog;
  GyreHistory& mHistory;
  const GyreProcess& mProcess;
  const PulpFlow& mFlow;
  const GyreProcess::Pulp& mPulp;
  bool mIsRunning = false;
  std::int64_t mStart = 0;
};

}  // namespace ostrand::simulator
