#include "host/transcript/ControlPath.h"

#include "platform/base/NumberText.h"
#include "platform/controls/Nested.h"

namespace ostrand {

namespace {

// Tags may hold points and are not read through a probe, so they are compared as they stand.
std::string tagOf(const Control& control) { return asText(control.get("Tag", {})); }

Control* findByTag(const ControlCollection& controls, std::string_view tag) {
  for (Control* control : controls)
    if (tagOf(*control) == tag) return control;
  for (Control* control : controls)
    if (Component* const nested = nestedIn(*control))
      if (Control* const found = findByTag(nested->controls(), tag)) return found;
  return nullptr;
}

}  // namespace

Component* nestedIn(const Control& control) {
  const auto* const holder = dynamic_cast<const NestedControl*>(&control);
  return holder ? holder->nested().get() : nullptr;
}

Control* findControl(const ControlCollection& controls, std::string_view name) {
  if (name.starts_with('@'))
    if (Control* const found = findByTag(controls, name.substr(1))) return found;
  const std::size_t point = name.find('.');
  const std::string_view first = name.substr(0, point);
  Control* control = nullptr;
  if (first.starts_with('@')) {
    if (point != name.npos) control = findByTag(controls, first.substr(1));
  } else {
    for (Control* const each : controls)
      if (each->name() == first) {
        control = each;
        break;
      }
  }
  if (!control || point == name.npos) return control;
  Component* const nested = nestedIn(*control);
  return nested ? findControl(nested->controls(), name.substr(point + 1)) : nullptr;
}

std::string nameOfControl(const ControlCollection& controls, const Control& control) {
  for (const Control* const each : controls) {
    if (each == &control) return each->name();
    if (Component* const nested = nestedIn(*each)) {
      const std::string inside = nameOfControl(nested->controls(), control);
      if (!inside.empty()) return each->name() + "." + inside;
    }
  }
  return {};
}

std::optional<PropertyName> PropertyName::read(std::string_view text) {
  // The indices of a property stand behind the last point, those of a control array before it.
  const std::size_t point = text.rfind('.');
  if (point == text.npos || point == 0) return std::nullopt;
  PropertyName name{std::string(text.substr(0, point)), {}, {}};
  std::string_view property = text.substr(point + 1);
  const std::size_t open = property.find('(');
  name.property = property.substr(0, open);
  if (name.property.empty()) return std::nullopt;
  if (open == property.npos) return name;
  if (!property.ends_with(')')) return std::nullopt;
  property = property.substr(open + 1, property.size() - open - 2);
  for (;;) {
    const std::size_t comma = property.find(',');
    const auto index = parseInteger(property.substr(0, comma));
    if (!index || *index < INT32_MIN || *index > INT32_MAX) return std::nullopt;
    name.indices.push_back(static_cast<int>(*index));
    if (comma == property.npos) return name;
    property.remove_prefix(comma + 1);
  }
}

}  // namespace ostrand
