#pragma once

#include <string>
#include <vector>

#include "benchmarks/Placed.h"

namespace ostrand::bench {

// A whole laboratory calibration as it went once between a user, the calibration view and a simulated transmitter, from the
// first click to the recipes read back. It can be held again without a transmitter: the user does the same, and the answers
// come as texts.
class Calibration {
 public:
  // Of a simulated device. Recorded once; the works of one device share it.
  static const Calibration& of(const std::string& device);

  const std::string& dataSet() const { return mDataSet; }
  // Everything that the device has said.
  std::vector<std::string> answers() const;
  // A view with the data set, as before the first click.
  std::unique_ptr<Placed> makeView() const;
  void hold(const Placed& placed) const;

 private:
  enum class Deed { Show, Click, Choose, Type };
  struct Step {
    Deed deed;
    std::string place;  // a frame's key or a control's name
    std::string value;
    std::vector<std::string> answers;  // that came before the next step
  };

  explicit Calibration(const std::string& device);
  static void act(Component& view, const Step& step);

  std::string mDataSet;
  std::vector<Step> mSteps;
};

}  // namespace ostrand::bench
