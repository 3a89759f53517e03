#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/Transfer.h"

namespace ostrand {

// What the data set says beside what the device says, parameter by parameter. Reads the device without changing anything.
class Comparison {
 public:
  struct Row {
    std::string parameter;
    std::string group;
    std::string unit;
    std::string dataSet;    // in document form: the edit if there is one
    std::string device;     // in document form and the data set's unit; empty if it was not read
    std::string errorCode;  // why it was not read, a key of the text table; empty if it was
    bool same = false;      // within the decimals that are shown
  };

  Comparison(Communication& communication, Ref<IUnitConverter> units)
      : mCommunication(communication), mUnits(std::move(units)), mTransfer(communication, true) {}

  // Compares all parameters that can be read, each in its home group; `finished` is called once. Error 91 without a data set.
  void start(std::function<void()> finished);
  const Transfer& transfer() const { return mTransfer; }
  // In the order of the groups; complete when it has finished.
  const std::vector<Row>& rows() const { return mRows; }

 private:
  void compare();

  Communication& mCommunication;
  Ref<IUnitConverter> mUnits;
  Transfer mTransfer;
  std::vector<Row> mRows;
};

// Two values in document form, as the user sees them: numbers within the parameter's decimals, texts as they stand.
bool sameShown(const ParameterInfo& info, const std::string& a, const std::string& b);

}  // namespace ostrand
