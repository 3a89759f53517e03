#include "platform/xml/Prefixes.h"

#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace ostrand {

namespace {

struct Known {
  std::string_view prefix;
  std::string_view uri;
};

// Where `data:` and `typeInfo:` are bound to another address they are still what the host binds; `comm:`
// means this one namespace only.
constexpr Known kKnown[] = {
    {"comm", "x-schema:TAVCommunicationSchema.xml"},
    {"data", "x-schema:TAVPersistentDataSchema.xml"},
    {"typeInfo", "x-schema:TAVTypeInfoSchema.xml"},
};
constexpr std::string_view kForeign = "foreign-comm";

std::optional<std::string_view> declaredPrefix(pugi::xml_attribute attribute) {
  const std::string_view name = attribute.name();
  if (name == "xmlns") return "";
  if (name.starts_with("xmlns:")) return name.substr(6);
  return std::nullopt;
}

// The prefix that a declaration should bear.
std::string_view canonical(std::string_view prefix, std::string_view uri) {
  for (const Known& known : kKnown)
    if (known.uri == uri) return known.prefix;
  return prefix == "comm" ? kForeign : prefix;
}

// A prefix that means, from an element of this depth down, not what it would without.
struct Binding {
  std::size_t depth;
  std::string prefix;
  std::string canonical;
};

class Renaming {
 public:
  void run(pugi::xml_document& document) {
    std::size_t depth = 1;
    for (pugi::xml_node at = document.first_child(); at;) {
      if (at.type() == pugi::node_element) enter(at, depth);
      if (at.first_child()) {
        at = at.first_child();
        ++depth;
        continue;
      }
      leave(depth);
      while (at && !at.next_sibling()) {
        at = at.parent();
        leave(--depth);
        if (depth == 0) return;
      }
      at = at.next_sibling();
    }
  }

 private:
  void enter(pugi::xml_node element, std::size_t depth) {
    // A foreign `comm` makes room before another prefix becomes `comm`.
    declare(element, depth, true);
    declare(element, depth, false);
    rename(element);
    for (pugi::xml_attribute at : element.attributes())
      if (std::strchr(at.name(), ':') && !declaredPrefix(at)) rename(at);
  }

  void declare(pugi::xml_node element, std::size_t depth, bool foreign) {
    for (pugi::xml_attribute at = element.first_attribute(), next; at; at = next) {
      next = at.next_attribute();
      const auto prefix = declaredPrefix(at);
      if (!prefix) continue;
      const std::string_view wanted = canonical(*prefix, at.value());
      if ((wanted == kForeign && *prefix == "comm") != foreign) continue;
      const bool renames = wanted != *prefix;
      if (renames || find(*prefix)) mBindings.push_back({depth, std::string(*prefix), std::string(wanted)});
      if (!renames) continue;
      const std::string name = "xmlns:" + std::string(wanted);
      if (element.attribute(name.c_str()))
        element.remove_attribute(at);
      else
        at.set_name(name.c_str());
    }
  }

  const Binding* find(std::string_view prefix) const {
    for (std::size_t i = mBindings.size(); i-- > 0;)
      if (mBindings[i].prefix == prefix) return &mBindings[i];
    return nullptr;
  }

  void leave(std::size_t depth) {
    while (!mBindings.empty() && mBindings.back().depth >= depth) mBindings.pop_back();
  }

  template <class Named>
  void rename(Named named) const {
    const std::string_view name = named.name();
    const std::size_t colon = name.find(':');
    const std::string_view prefix = colon == name.npos ? std::string_view() : name.substr(0, colon);
    const Binding* const binding = find(prefix);
    if (!binding || binding->canonical == prefix) return;
    const std::string_view local = colon == name.npos ? name : name.substr(colon + 1);
    named.set_name((binding->canonical + ":" + std::string(local)).c_str());
  }

  std::vector<Binding> mBindings;
};

}  // namespace

std::size_t countNamespaceDeclarations(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find("xmlns"); at != text.npos; at = text.find("xmlns", at + 5)) ++count;
  return count;
}

void makePrefixesCanonical(pugi::xml_document& document, std::size_t declarations) {
  std::size_t fine = 0;
  for (pugi::xml_attribute attribute : document.document_element().attributes())
    if (const auto prefix = declaredPrefix(attribute); prefix && canonical(*prefix, attribute.value()) == *prefix) ++fine;
  if (fine != declarations) Renaming().run(document);
}

}  // namespace ostrand
