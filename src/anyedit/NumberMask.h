#pragma once

#include <string>

namespace ostrand {

// The mask of a number with so many decimals: "######0", "######0.000".
std::string numberMask(int decimals);

// A number with the decimals of the mask, rounded half away from zero. What is no number stays as it is: an empty text, "NaN".
std::string masked(const std::string& text, const std::string& mask, char separator);

}  // namespace ostrand
