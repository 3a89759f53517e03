#pragma once

#include <string>

namespace ostrand::bench {

// A data set in the mix of ours: parameters with ten attributes, each in one request group, one mapping to
// ten parameters.
std::string dataSetText(int parameters);

// An answer with this many items, of the first parameters of that data set.
std::string answerText(int items, int salt);

}  // namespace ostrand::bench
