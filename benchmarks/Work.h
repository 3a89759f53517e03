#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "benchmarks/Meter.h"

namespace ostrand::bench {

// A piece of work, done once per call; the meter is told which part of it counts. Works of one name do the same.
struct Work {
  std::string name;
  std::function<void(Meter&)> once;
};

// The median seconds of one call of each. They take turns, so that a burst of other load meets all of them.
std::vector<double> timed(const std::vector<Work>& works);

// Does the work under callgrind, which then writes its counts under the work's name.
void counted(const Work& work);
// The instructions by work's name, from the files that callgrind has left in this folder.
std::map<std::string, double> readCounts(const std::string& folder);

}  // namespace ostrand::bench
