#pragma once

#include <cmath>
#include <limits>
#include <string_view>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

// A number of a document as an integer of this size: rounded to the nearest, of two equally near to the even one. Error 13 for no
// number, 6 for one that does not fit.
template <class Integer>
Integer wholeNumber(std::string_view text) {
  const double value = std::nearbyint(requireNumber(text, '.'));
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
    throw RuntimeError(RuntimeError::Overflow, "the number is too large");
  return static_cast<Integer>(value);
}

}  // namespace ostrand
