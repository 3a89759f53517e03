#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace ostrand {

// Whether it is the element below which a tree keeps its detached nodes: a child of the document that is no part of it.
inline bool isHidden(pugi::xml_node node) { return node.name()[0] == '#'; }

// Elements of one kind by their `name` attribute: a flat open-addressing table, built in one pass over the
// elements that `path` tells. Elements that share a name hang on one chain in document order, so the first
// of them is what the path would select.
class NameIndex {
 public:
  // The element names from the root down; with one name only, elements of that name anywhere in the tree.
  using Path = std::initializer_list<const char*>;

  explicit NameIndex(Path path) : mPath(path) {}

  bool built() const { return mBuilt; }
  void build(pugi::xml_node document);
  void reset();

  pugi::xml_node find(std::string_view name) const;
  // Calls `visit(node)` for each element of this name in document order until it returns false.
  template <class Visit>
  void forEach(std::string_view name, Visit visit) const {
    for (std::uint32_t i = head(name); i; i = mEntries[i - 1].next)
      if (!visit(nodeOf(i))) return;
  }

  // The tree tells its changes: an element that is in place with all that is in it, one that is about to go
  // with all that is in it, one whose `name` is about to change or has changed. Only an index that has been
  // built listens.
  void inserted(pugi::xml_node node);
  void removing(pugi::xml_node node);
  void renaming(pugi::xml_node node);
  void renamed(pugi::xml_node node);

  std::size_t memory() const;

 private:
  struct Entry {
    pugi::xml_node_struct* node;
    std::uint32_t next;  // index + 1 of the next element of this name, 0 at the end
  };
  struct Slot {
    std::uint32_t hash;
    std::uint32_t entry;  // index + 1 of the first element of this name, 0 when free
  };

  // Calls `apply` for each member at or below `top` in document order.
  template <class Do>
  void eachMember(pugi::xml_node top, Do apply) const;
  template <class Do>
  void eachBelow(pugi::xml_node node, std::size_t depth, Do& apply) const;
  // How many names of the path lead to this element; 0 if it stands elsewhere.
  std::size_t depthOnPath(pugi::xml_node node) const;
  bool isMember(pugi::xml_node node) const;
  pugi::xml_node nodeOf(std::uint32_t entry) const { return pugi::xml_node(mEntries[entry - 1].node); }
  void add(pugi::xml_node node);
  // The link of the chain from `head` that shall lead to this element.
  std::uint32_t* linkFor(std::uint32_t& head, pugi::xml_node node);
  void remove(pugi::xml_node node);
  // Where the name of this text, or of this node, stands or would stand.
  template <class Named>
  std::size_t slotOf(Named named, std::uint32_t hash) const;
  std::uint32_t head(std::string_view name) const;
  void grow();

  std::vector<const char*> mPath;
  std::vector<Entry> mEntries;
  std::vector<Slot> mSlots;
  std::size_t mUsed = 0;
  bool mBuilt = false;
};

}  // namespace ostrand
