#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// A picture, or a ground that holds other controls together.
class PictureBox : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "PictureBox"; }

 protected:
  Kind ownKind() const override { return Kind::PictureBox; }
};

}  // namespace ostrand
