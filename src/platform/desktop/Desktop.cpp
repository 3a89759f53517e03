#include "platform/desktop/Desktop.h"

namespace ostrand {

void Desktop::tellUnhandled(const ErrorText& error) noexcept {
  try {
    if (unhandled.hasListeners())
      unhandled(error);
    else
      debugOutput("unhandled error " + std::to_string(error.number) + ": " + error.description);
  } catch (...) {
    // There is nobody left to tell, and somebody may be waiting.
  }
}

}  // namespace ostrand
