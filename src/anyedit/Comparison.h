#pragma once

namespace ostrand {

// The signed difference a - b, or 0 where it is below what the decimals can show: 0.9 of the hundredth part of the last one,
// or 0.9 where there are none. An absent limit (kNoMaximum, kNoMinimum) is never passed: 50 or -50.
double dblAComparedToB(double a, double b, int decimals);

}  // namespace ostrand
