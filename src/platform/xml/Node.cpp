#include "platform/xml/Node.h"

#include <cstring>

#include "platform/base/RuntimeError.h"
#include "platform/xml/PathQuery.h"
#include "platform/xml/StringWriter.h"

namespace ostrand {

namespace {

bool isElement(pugi::xml_node node) { return node.type() == pugi::node_element && !isHidden(node); }

pugi::xml_node elementFrom(pugi::xml_node node) {
  while (node && !isElement(node)) node = node.next_sibling();
  return node;
}

}  // namespace

pugi::xml_node Node::checked() const {
  if (!mNode) throwNothingThere("the element");
  return mNode;
}

std::string_view Node::name() const { return checked().name(); }

std::string Node::text() const {
  const pugi::xml_node top = checked();
  const pugi::xml_node first = top.first_child();
  if (!first) return {};
  if (!first.next_sibling() && first.type() == pugi::node_pcdata) return first.value();
  std::string text;
  for (pugi::xml_node at = first; at && at != top;) {
    if (at.type() == pugi::node_pcdata || at.type() == pugi::node_cdata) text += at.value();
    if (at.first_child()) {
      at = at.first_child();
      continue;
    }
    while (at != top && !at.next_sibling()) at = at.parent();
    if (at != top) at = at.next_sibling();
  }
  return text;
}

std::string_view Node::attribute(const char* name) const {
  const pugi::xml_attribute attribute = checked().attribute(name);
  if (!attribute) throw RuntimeError(RuntimeError::NothingThere, "the attribute " + std::string(name) + " is not there");
  return attribute.value();
}

std::optional<std::string_view> Node::findAttribute(const char* name) const {
  const pugi::xml_attribute attribute = checked().attribute(name);
  if (!attribute) return std::nullopt;
  return attribute.value();
}

std::string Node::xml() const {
  StringWriter writer;
  checked().print(writer, "", pugi::format_raw | pugi::format_no_declaration);
  return std::move(writer.text);
}

Node Node::parent() const {
  const pugi::xml_node up = checked().parent();
  return isElement(up) ? Node(mTree, up) : Node();
}

Node Node::firstChild() const { return {mTree, elementFrom(checked().first_child())}; }

Node Node::nextSibling() const { return {mTree, elementFrom(checked().next_sibling())}; }

Node Node::child(const char* name) const {
  Node at = firstChild();
  while (at && at.name() != name) at = at.nextSibling();
  return at;
}

Node Node::select(const std::string& xpath) const {
  const pugi::xml_node from = checked();
  const auto found = evaluatePath(*mTree, from, xpath, true);
  return found.empty() || !isElement(found.front().node()) ? Node() : Node(mTree, found.front().node());
}

std::vector<Node> Node::selectAll(const std::string& xpath) const {
  const pugi::xml_node from = checked();
  std::vector<Node> nodes;
  for (const pugi::xpath_node& found : evaluatePath(*mTree, from, xpath, false))
    if (isElement(found.node())) nodes.emplace_back(mTree, found.node());
  return nodes;
}

std::optional<std::string> Node::selectText(const std::string& xpath) const {
  const pugi::xml_node from = checked();
  const auto found = evaluatePath(*mTree, from, xpath, true);
  if (found.empty()) return std::nullopt;
  if (found.front().attribute()) return found.front().attribute().value();
  if (found.front().node().type() == pugi::node_element) return Node(mTree, found.front().node()).text();
  return found.front().node().value();
}

void Node::setText(std::string_view text) const {
  pugi::xml_node node = checked();
  // Whatever else the element holds goes; a detached element inside it must live on, so it is parked.
  for (pugi::xml_node child = node.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (child.type() == pugi::node_element)
      Node(mTree, child).remove();
    else
      node.remove_child(child);
    child = next;
  }
  if (!text.empty()) node.append_child(pugi::node_pcdata).set_value(std::string(text).c_str());
}

void Node::setAttribute(const char* name, std::string_view value) const {
  pugi::xml_node node = checked();
  const bool renames = std::strcmp(name, "name") == 0 && !mTree->isParked(node);
  if (renames) mTree->eachIndex([&](NameIndex& index) { index.renaming(node); });
  pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) attribute = node.append_attribute(name);
  attribute.set_value(std::string(value).c_str());
  if (renames) mTree->eachIndex([&](NameIndex& index) { index.renamed(node); });
}

Node Node::clone() const {
  const pugi::xml_node node = checked();
  return {mTree, mTree->parking().append_copy(node)};
}

Node Node::append(const Node& child) const { return insertBefore(child, {}); }

Node Node::insertBefore(const Node& child, const Node& before) const {
  pugi::xml_node parent = checked();
  pugi::xml_node moving = child.checked();
  if (before && before.mNode == moving) return child;
  if (before && before.mNode.parent() != parent) throw RuntimeError(RuntimeError::BadArgument, "the element is no child of this one");
  if (child.mTree == mTree) {
    for (pugi::xml_node up = parent; up; up = up.parent())
      if (up == moving) throw RuntimeError(RuntimeError::BadArgument, "an element cannot be put inside itself");
    child.remove();
    moving = before ? parent.insert_move_before(moving, before.mNode) : parent.append_move(moving);
  } else {
    moving = before ? parent.insert_copy_before(moving, before.mNode) : parent.append_copy(moving);
    child.remove();
  }
  if (!mTree->isParked(moving)) mTree->eachIndex([&](NameIndex& index) { index.inserted(moving); });
  return {mTree, moving};
}

Node Node::appendElement(const char* name) const {
  pugi::xml_node parent = checked();
  const pugi::xml_node element = parent.append_child(name);
  if (!mTree->isParked(element)) mTree->eachIndex([&](NameIndex& index) { index.inserted(element); });
  return {mTree, element};
}

void Node::remove() const {
  const pugi::xml_node node = checked();
  if (!mTree->isParked(node)) mTree->eachIndex([&](NameIndex& index) { index.removing(node); });
  mTree->parking().append_move(node);
}

}  // namespace ostrand
