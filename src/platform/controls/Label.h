#pragma once

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "Label"; }

 protected:
  Kind ownKind() const override { return Kind::Label; }
};

}  // namespace ostrand
