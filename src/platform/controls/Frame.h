#pragma once

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

// A full-size panel of a view; its Tag is the key under which it is selected.
class Frame : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "Frame"; }

 protected:
  Kind ownKind() const override { return Kind::Frame; }
};

}  // namespace ostrand
