#pragma once

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

class CheckBox : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "CheckBox"; }

  bool Value() const { return read(mValue, "Value"); }
  // Raises Click when the value really changes, as a click does.
  void Value(bool value) {
    if (probe()) probeSetting("Value", value);
    become(value);
  }

  Signal<> Click;

  // The user's click; error 70 if the box cannot be reached.
  void click() {
    requireUsable();
    become(!mValue);
  }

  ostrand::Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::CheckBox; }

 private:
  void become(bool value) {
    if (value == mValue) return;
    mValue = value;
    changedNow();
    raise(Click);
  }
  bool mValue = false;
};

}  // namespace ostrand
