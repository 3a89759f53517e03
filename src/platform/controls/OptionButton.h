#pragma once

#include <vector>

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

// A radio button. The buttons of one group know each other: one that is switched on switches the others off.
class OptionButton : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "OptionButton"; }

  bool Value() const { return read(mValue, "Value"); }
  // Raises Click when the button is switched on and was not, by code as by the user.
  void Value(bool value) {
    if (probe()) probeSetting("Value", value);
    become(value);
  }

  Signal<> Click;

  // The user's click; error 70 if the button cannot be reached.
  void click() {
    requireUsable();
    become(true);
  }

  // The other buttons of the group; told once, by the form.
  void groupWith(std::vector<OptionButton*> others) { mOthers = std::move(others); }

  ostrand::Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::OptionButton; }

 private:
  void become(bool value);
  bool mValue = false;
  std::vector<OptionButton*> mOthers;
};

}  // namespace ostrand
