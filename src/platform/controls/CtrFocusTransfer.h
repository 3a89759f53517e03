#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// Belongs to the layout: a pair of these stands in the frames with write buttons. No logic touches it.
class CtrFocusTransfer : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "CtrFocusTransfer"; }

 protected:
  Kind ownKind() const override { return Kind::NoData; }
};

}  // namespace ostrand
