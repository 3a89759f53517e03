#pragma once

#include <functional>

#include "platform/base/RuntimeError.h"

namespace ostrand::test {

// The number of the RuntimeError that this throws, 0 if it throws none.
inline int errorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace ostrand::test
