#include "platform/controls/Choices.h"

#include <cstring>

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

// Calls `visit(value, key)` for each entry; ends when it answers false.
template <class Visit>
bool eachEntry(const Node& mapping, Visit visit) {
  if (!mapping) return true;
  for (pugi::xml_node entry = mapping.raw().first_child(); entry; entry = entry.next_sibling()) {
    if (std::strcmp(entry.name(), "data:mappedItem") != 0) continue;
    std::string_view value, key;
    for (pugi::xml_attribute attribute = entry.first_attribute(); attribute; attribute = attribute.next_attribute()) {
      const char* const name = attribute.name();
      if (std::strcmp(name, "value") == 0)
        value = attribute.value();
      else if (std::strcmp(name, "key") == 0)
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
  constexpr std::size_t kUsual = 8;
  mChoices.reserve(kUsual);
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
