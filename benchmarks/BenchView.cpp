#include "benchmarks/BenchView.h"

#include <algorithm>

namespace ostrand::bench {

void BenchView::declare(Form& form) {
  constexpr int kPerFrame = 20;
  for (int from = 0; from < mControls; from += kPerFrame) {
    FrameForm rows = frame(form, ("frame" + std::to_string(from)).c_str(), ("date_group" + std::to_string(from / kPerFrame)).c_str());
    for (int i = from; i < std::min(from + kPerFrame, mControls); ++i) {
      // Every fifth parameter is coded; a tenth of the controls find no mapping of their own name.
      const int spread = mParameters / mControls / 10 * 10;
      const int parameter = std::min(i * std::max(spread, 1), mParameters - 10) / 10 * 10 + (i % 10);
      const std::string name = "recipe" + std::to_string(parameter / 10) + "Value" + std::to_string(parameter);
      Control& control = i % 5 == 4 ? static_cast<Control&>(cceValue.next()) : i % 10 == 7 ? static_cast<Control&>(cdeValue.next()) : cteValue.next();
      rows.row(lblValue.next(), name.c_str(), control, ("ctr_" + name).c_str());
    }
  }
}

}  // namespace ostrand::bench
