#include "platform/xml/Vocabulary.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

const NameIndex& ready(const Document& doc, NameIndex Tree::*index, std::string_view name) {
  if (!doc) throwNothingThere("the document");
  if (name.find('"') != name.npos) throw RuntimeError(RuntimeError::BadArgument, "a name with a quote breaks the path: " + std::string(name));
  return doc.tree()->ready((*doc.tree()).*index);
}

Node find(const Document& doc, NameIndex Tree::*index, std::string_view name) { return {doc.tree(), ready(doc, index, name).find(name)}; }

}  // namespace

Node parameter(const Document& doc, std::string_view name) { return find(doc, &Tree::parameters, name); }
Node parameterAnywhere(const Document& doc, std::string_view name) { return find(doc, &Tree::parametersAnywhere, name); }
Node mapping(const Document& doc, std::string_view name) { return find(doc, &Tree::mappings, name); }
Node group(const Document& doc, std::string_view name) { return find(doc, &Tree::groups, name); }
Node item(const Document& doc, std::string_view name) { return find(doc, &Tree::items, name); }
Node itemAnywhere(const Document& doc, std::string_view name) { return find(doc, &Tree::itemsAnywhere, name); }

Node mappingByTail(const Document& doc, std::string_view parameterName) {
  if (Node whole = mapping(doc, parameterName)) return whole;
  for (std::size_t i = parameterName.size(); i-- > 1;) {
    const char c = parameterName[i];
    if (c >= 'a' && c <= 'z') continue;
    std::string tail(parameterName.substr(i));
    if (c >= 'A' && c <= 'Z') tail[0] = static_cast<char>(c - 'A' + 'a');
    if (Node found = mapping(doc, tail)) return found;
  }
  return {};
}

Node response(const Document& doc) {
  if (!doc) throwNothingThere("the document");
  const Node root = doc.root();
  return root && root.name() == "comm:dtm" ? root.child("comm:communicationResponse") : Node();
}

Node responseAnywhere(const Document& doc) {
  // Nearly always the first element below the root; whatever stands before it would have to be searched.
  if (!doc) throwNothingThere("the document");
  if (const Node root = doc.root(); root && root.name() == "comm:dtm")
    if (const Node first = root.firstChild(); first && first.name() == "comm:communicationResponse") return first;
  return doc.select("//comm:communicationResponse");
}

std::optional<std::string> attributeAnywhere(const Document& doc, const char* element, const char* attribute) {
  if (!doc) throwNothingThere("the document");
  for (Node at = doc.root(); at;) {
    if (at.name() == element)
      if (const auto found = at.findAttribute(attribute)) return std::string(*found);
    if (Node down = at.firstChild()) {
      at = down;
      continue;
    }
    Node next = at.nextSibling();
    while (!next && (at = at.parent())) next = at.nextSibling();
    at = next;
  }
  return std::nullopt;
}

std::string homeGroup(const Document& doc, std::string_view parameterName) {
  pugi::xml_node only, home;
  std::size_t count = 0;
  const auto isHome = [](pugi::xml_node included) {
    const pugi::xml_attribute clone = included.attribute("clone");
    return !clone || std::string_view(clone.value()) == "0";
  };
  ready(doc, &Tree::includedParams, parameterName).forEach(parameterName, [&](pugi::xml_node included) {
    if (++count == 1) return only = included, true;
    if (count == 2 && isHome(only)) home = only;
    if (!home && isHome(included)) home = included;
    return !home;
  });
  const pugi::xml_node found = count == 1 ? only : home;
  return found.parent().attribute("name").value();
}

}  // namespace ostrand
