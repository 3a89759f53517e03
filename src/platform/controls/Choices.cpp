#include "platform/controls/Choices.h"

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

// Calls `visit(value, key)` for each entry; ends when it answers false.
template <class Visit>
bool eachEntry(const Node& mapping, Visit visit) {
  if (!mapping) return true;
  for (const pugi::xml_node entry : mapping.raw().children()) {
    if (std::string_view(entry.name()) != "data:mappedItem") continue;
    std::string_view value, key;
    for (const pugi::xml_attribute attribute : entry.attributes()) {
      const std::string_view name = attribute.name();
      if (name == "value")
        value = attribute.value();
      else if (name == "key")
        key = attribute.value();
    }
    if (!visit(value, key)) return false;
  }
  return true;
}

}  // namespace

bool Choices::areThoseOf(const Node& mapping) const {
  std::size_t at = 0;
  const bool same = eachEntry(mapping, [&](std::string_view value, std::string_view key) {
    if (at == mChoices.size() || mChoices[at].value != value || mChoices[at].key != key) return false;
    ++at;
    return true;
  });
  return same && at == mChoices.size();
}

bool Choices::read(const Node& mapping) {
  if (areThoseOf(mapping)) return false;
  mChoices.clear();
  eachEntry(mapping, [&](std::string_view value, std::string_view key) {
    mChoices.push_back({std::string(value), std::string(key)});
    return true;
  });
  return true;
}

const Choice* Choices::byValue(std::string_view value) const {
  for (const Choice& choice : mChoices)
    if (choice.value == value) return &choice;
  if (const auto number = parseNumber(value, '.'))
    for (const Choice& choice : mChoices)
      if (parseNumber(choice.value, '.') == number) return &choice;
  return nullptr;
}

const Choice* Choices::byKey(std::string_view key) const {
  for (const Choice& choice : mChoices)
    if (choice.key == key) return &choice;
  return nullptr;
}

}  // namespace ostrand
