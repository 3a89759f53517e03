#include "platform/controls/TextBox.h"

namespace ostrand {

Value TextBox::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Text") return mText;
  return Control::get(property, indices);
}

void TextBox::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Text") return Text(asText(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
