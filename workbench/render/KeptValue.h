#pragma once

#include <QString>

namespace ostrand {

// A value that the device is still to get, and that a data set keeps until then. The edit shows it, or shows what the device
// has: `other` is the one of the two that it does not show.
struct KeptValue {
  enum class Shown { Nothing, Kept, Device };
  Shown shown = Shown::Nothing;  // nothing is kept
  QString other;
};

}  // namespace ostrand
