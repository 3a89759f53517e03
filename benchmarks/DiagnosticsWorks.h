#pragma once

#include "benchmarks/Works.h"

namespace ostrand::bench {

// A new answer to a diagnostics view that shows another one, reading included, until the model is settled: the event log with
// its 48 items, or a device status of so many bits. The peer reads the same text, looks for each item by a path, and puts
// what it finds into a list of as many rows.
Work eventLog(By by);
Work deviceStatus(By by, int bits);

}  // namespace ostrand::bench
