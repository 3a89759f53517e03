#include "benchmarks/BenchView.h"

#include <algorithm>
#include <string>

#include "benchmarks/Documents.h"

namespace ostrand::bench {

void BenchView::declare(Form& form) {
  constexpr int kPerFrame = 20;
  for (int from = 0; from < mControls; from += kPerFrame) {
    const std::string key = "frame" + std::to_string(from);
    FrameForm rows = frame(form, key.c_str(), ("date_" + groupOf(parameterOf(from))).c_str());
    for (int i = from; i < std::min(from + kPerFrame, mControls); ++i) {
      const std::string name = nameOf(parameterOf(i));
      rows.row(lblValue.next(), name.c_str(), nextControl(i), ("ctr_" + name).c_str());
    }
  }
}

Control& BenchView::nextControl(int i) {
  switch (contentOf(i)) {
    case Content::Choice: return cceValue.next();
    case Content::Date: return cdeValue.next();
    default: return cteValue.next();
  }
}

// Keeps the last digit, which tells what a parameter holds.
int BenchView::parameterOf(int i) const {
  const int spread = std::max(mParameters / mControls, 1);
  return std::min((mFirst + i * spread) / 10 * 10, mParameters - 10) + i % 10;
}

}  // namespace ostrand::bench
