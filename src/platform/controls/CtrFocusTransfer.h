#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// Belongs to the layout: the form puts a pair of these into each frame with a button that writes to the device, before the
// first and behind the last control that is written with. Nothing of it is seen, and no logic touches it.
class CtrFocusTransfer : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "CtrFocusTransfer"; }

 protected:
  Kind ownKind() const override { return Kind::NoData; }
};

}  // namespace ostrand
