#include "platform/controls/TextBox.h"

#include "platform/controls/Component.h"

namespace ostrand {

void TextBox::type(const std::string& text) {
  requireUsable();
  const Ref<Component> pin(owner());
  if (text == mText) return;
  mText = text;
  changedNow();
  Change(mText);
}

Value TextBox::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Text") return mText;
  return Control::get(property, indices);
}

void TextBox::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Text") return Text(asText(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
