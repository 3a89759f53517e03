#include "platform/controls/CheckBox.h"

namespace ostrand {

Value CheckBox::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Value") return mValue;
  return CaptionedControl::get(property, indices);
}

void CheckBox::set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) {
  if (property == "Value") return Value(asBool(value));
  CaptionedControl::set(property, indices, value);
}

}  // namespace ostrand
