#pragma once

#include "simulator/CurrentOutput.h"
#include "simulator/ParameterTable.h"

namespace ostrand::simulator {

// What a transmitter of one consistency puts out: the current, and on PROFIBUS a function block that stands between the measurement and
// the master, which simulates, holds, or is out of service.
class ConsistencyOutput {
 public:
  // What the transmitter knows of itself.
  struct Health {
    bool isFailSafe;
    bool isOutOfService;  // it cannot put out anything
    bool isOutOfLimits;   // the consistency
  };

  explicit ConsistencyOutput(ParameterTable& table) : mTable(table), mHeld(mTable.number("outputValue", 0)) {}

  bool isTested() const { return mLoopTest != 0; }
  bool isSimulated() const { return mTable.key("simulation") == "on"; }
  // mA, or %Cs without a current output; 0 ends the test.
  void test(double value) { mLoopTest = value; }
  // mA; 0 lets the output follow.
  void fixCurrent(double mA) { mFixedCurrent = mA; }
  // Of what goes out by hand or out of service, the value that it has now. A test is not what is held when it is over.
  void hold();
  // What is replaced by its last value at a failure is replaced by what is there now.
  void keepLast();
  // What stands for the measured value at a failure, %Cs.
  double failSafe(double measured) const;
  void powerUp() { mLoopTest = mFixedCurrent = 0; }

  CurrentOutput current(double consistency, bool isFailSafe) const;
  // -1 below, 1 above, else 0.
  int sideOfSensorLimits(double consistency) const;
  // What goes out on the bus in turn with other values, and what it is worth.
  void showFunctionBlock(const Health& health);

 private:
  // By hand or out of service: what goes out does not follow the measurement.
  bool isHeld() const { return mTable.key("actualMode") == "modeManual" || mTable.key("actualMode") == "modeOutOfService"; }

  ParameterTable& mTable;
  double mLoopTest = 0;
  double mFixedCurrent = 0;
  double mLastConsistency = 0;  // %Cs, before the first failure
  double mLastCurrent = 0;      // mA, likewise
  double mHeld = 0;             // %Cs
};

}  // namespace ostrand::simulator
