#include "platform/controls/OptionButton.h"

namespace ostrand {

void OptionButton::become(bool value) {
  if (value == mValue) return;
  mValue = value;
  changedNow();
  if (!value) return;
  for (OptionButton* other : mOthers) other->become(false);
  raise(Click);
}

Value OptionButton::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Value") return mValue;
  return CaptionedControl::get(property, indices);
}

void OptionButton::set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) {
  if (property == "Value") return Value(asBool(value));
  CaptionedControl::set(property, indices, value);
}

}  // namespace ostrand
