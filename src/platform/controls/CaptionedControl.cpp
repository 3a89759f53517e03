#include "platform/controls/CaptionedControl.h"

#include "platform/controls/Component.h"

namespace ostrand {

Value CaptionedControl::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Caption") return mCaption;
  return Control::get(property, indices);
}

void CaptionedControl::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Caption") return Caption(asText(value));
  Control::set(property, indices, value);
}

void CaptionedControl::design(const char* property, std::string text) {
  if (std::string_view(property) == "Caption")
    mCaption = std::move(text);
  else
    Control::design(property, std::move(text));
}

void CaptionedControl::raise(Signal<>& event) {
  const Ref<Component> pin(owner());
  event();
}

}  // namespace ostrand
