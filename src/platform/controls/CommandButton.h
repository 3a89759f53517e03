#pragma once

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

class CommandButton : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "CommandButton"; }

  Signal<> Click;

  // The user's click; error 70 if the button cannot be reached.
  void click() {
    requireUsable();
    raise(Click);
  }

 protected:
  Kind ownKind() const override { return Kind::CommandButton; }
};

}  // namespace ostrand
