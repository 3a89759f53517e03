#pragma once

#include "benchmarks/Work.h"

namespace ostrand::bench {

// Three curves of 50 points and 17 samples on 800 x 500 pixels, antialiased, after the samples have moved: until it is painted.
Work paintChart();
// The same on a bare plot, with the same fonts, pens and legend.
Work paintChartByHand();
// How often the chart is painted for 17 samples that come one behind the other before the next turn of the event loop.
double paintsOfAnAnswer();

}  // namespace ostrand::bench
