#include "anyedit/Comparison.h"

#include <cmath>

#include "anyedit/AnyItem.h"

namespace ostrand {

double dblAComparedToB(double a, double b, int decimals) {
  if (a == kNoMaximum || b == kNoMinimum) return 50.0;
  if (a == kNoMinimum || b == kNoMaximum) return -50.0;
  const double tolerance = 0.9 * (decimals < 1 ? 1.0 : std::pow(0.1, decimals + 2));
  const double difference = a - b;
  return std::abs(difference) < tolerance ? 0.0 : difference;
}

}  // namespace ostrand
