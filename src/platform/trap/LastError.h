#pragma once

#include "platform/base/Ref.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

// The last error that was reported in a component and its strategy together. `depth` counts the entries
// that are on the stack: an outermost one begins without an error, a re-entered one puts the error back.
class LastError : public Counted {
 public:
  ErrorText error;
  int depth = 0;
};

}  // namespace ostrand
