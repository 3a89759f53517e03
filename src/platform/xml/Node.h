#pragma once

#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Ref.h"
#include "platform/xml/Tree.h"

namespace ostrand {

// A handle to an element that keeps its tree alive. An empty handle stands for "nothing": reading from it
// throws RuntimeError 91. Views of text (string_view) are good until the tree is changed.
class Node {
 public:
  Node() = default;
  Node(std::nullptr_t) {}
  Node(Ref<Tree> tree, pugi::xml_node node) {
    if (node) mTree = std::move(tree), mNode = node;
  }

  explicit operator bool() const { return static_cast<bool>(mNode); }
  friend bool operator==(const Node& a, const Node& b) { return a.mNode == b.mNode; }

  std::string_view name() const;
  // The text of the element and of all elements inside it.
  std::string text() const;
  // A missing attribute is error 91 too; `findAttribute` asks without it.
  std::string_view attribute(const char* name) const;
  std::optional<std::string_view> findAttribute(const char* name) const;
  // The element as text, in one line and without a declaration.
  std::string xml() const;

  Node parent() const;
  // Elements only: text, comments and instructions are passed over.
  Node firstChild() const;
  Node nextSibling() const;
  Node child(const char* name) const;

  // Free XPath from this element; a path that cannot be read throws RuntimeError 5. `select` gives the first
  // match if that is an element, `selectAll` all elements among the matches.
  Node select(const std::string& xpath) const;
  std::vector<Node> selectAll(const std::string& xpath) const;
  // Text of the first element, attribute or piece of text that the path selects.
  std::optional<std::string> selectText(const std::string& xpath) const;

  void setText(std::string_view text) const;
  void setAttribute(const char* name, std::string_view value) const;

  // A deep copy that stands in no document yet.
  Node clone() const;
  // Puts `child` behind the last child, or before the child `before`. A detached or attached node of this
  // tree moves; a node of another tree is copied here and parked there. Returns the node in its new place.
  Node append(const Node& child) const;
  Node insertBefore(const Node& child, const Node& before) const;
  Node appendElement(const char* name) const;
  // Takes the element out of its document; the handle stays good.
  void remove() const;

  const Ref<Tree>& tree() const { return mTree; }
  pugi::xml_node raw() const { return mNode; }

 private:
  friend class Document;
  pugi::xml_node checked() const;

  Ref<Tree> mTree;
  pugi::xml_node mNode;
};

}  // namespace ostrand
