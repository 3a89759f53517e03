#include "platform/xml/PathQuery.h"

#include <algorithm>
#include <string_view>

#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

using Nodes = std::vector<pugi::xpath_node>;

Nodes run(const pugi::xpath_query& query, pugi::xml_node from, bool firstOnly) {
  if (firstOnly) {
    const pugi::xpath_node found = query.evaluate_node(from);
    return found ? Nodes{found} : Nodes{};
  }
  pugi::xpath_node_set set = query.evaluate_node_set(from);
  set.sort();
  return {set.begin(), set.end()};
}

pugi::xml_node elementOf(const pugi::xpath_node& found) { return found.attribute() ? found.parent() : found.node(); }

// Detached nodes stand behind the whole document, so most paths find the same with and without them, and
// then some. Not so a path that counts, that looks for the last, that leaves its own branch, or that asks in
// a condition whether something is somewhere. In doubt: false.
bool looksForwardOnly(std::string_view xpath) {
  char quote = 0;
  int brackets = 0;
  for (std::size_t i = 0; i < xpath.size(); ++i) {
    const char c = xpath[i];
    if (quote) {
      if (c == quote) quote = 0;
      continue;
    }
    if (c == '"' || c == '\'') quote = c;
    if (c == '[') ++brackets;
    if (c == ']') --brackets;
    if (c == '/' && brackets > 0) return false;
    for (const std::string_view word : {"last", "count", "sum", "::", ".."})
      if (xpath.substr(i).starts_with(word)) return false;
  }
  return true;
}

// A copy of the document, and of the detached branch in which the path starts, without all other detached
// nodes. Counting is right there; what is found is told as the same node of the tree.
class Clean {
 public:
  Clean(Tree& tree, pugi::xml_node from) {
    for (pugi::xml_node child : tree.document.children())
      if (!tree.isParked(child)) mTops.push_back({child, mCopy.append_copy(child)});
    if (const pugi::xml_node top = tree.parkedTop(from)) mTops.push_back({top, mCopy.append_copy(top)});
    mFrom = from == tree.document ? pugi::xml_node(mCopy) : counterpart(from, false);
    mDocument = tree.document;
  }

  Nodes run(const pugi::xpath_query& query, bool firstOnly) const {
    Nodes nodes = ostrand::run(query, mFrom, firstOnly);
    for (pugi::xpath_node& found : nodes) {
      const pugi::xml_node node = counterpart(elementOf(found), true);
      if (!found.attribute()) {
        found = node;
        continue;
      }
      pugi::xml_attribute theirs = found.parent().first_attribute(), ours = node.first_attribute();
      for (; theirs != found.attribute(); theirs = theirs.next_attribute()) ours = ours.next_attribute();
      found = pugi::xpath_node(ours, node);
    }
    return nodes;
  }

 private:
  struct Top {
    pugi::xml_node ours, copy;
  };

  pugi::xml_node counterpart(pugi::xml_node node, bool fromCopy) const {
    if (node == mCopy) return mDocument;
    std::vector<std::size_t> way;  // the number of the child on each floor, from below
    const auto top = [&] {
      return std::find_if(mTops.begin(), mTops.end(), [&](const Top& each) { return (fromCopy ? each.copy : each.ours) == node; });
    };
    auto found = top();
    for (; found == mTops.end(); found = top()) {
      std::size_t place = 0;
      for (pugi::xml_node before = node.previous_sibling(); before; before = before.previous_sibling()) ++place;
      way.push_back(place);
      node = node.parent();
    }
    pugi::xml_node other = fromCopy ? found->ours : found->copy;
    for (auto place = way.rbegin(); place != way.rend(); ++place) {
      other = other.first_child();
      for (std::size_t i = 0; i < *place; ++i) other = other.next_sibling();
    }
    return other;
  }

  pugi::xml_document mCopy;
  pugi::xml_node mDocument;
  pugi::xml_node mFrom;
  std::vector<Top> mTops;
};

}  // namespace

std::vector<pugi::xpath_node> evaluatePath(Tree& tree, pugi::xml_node from, const std::string& xpath, bool firstOnly) {
  try {
    const pugi::xpath_query query(xpath.c_str());
    if (!tree.hasParked()) return run(query, from, firstOnly);
    if (!looksForwardOnly(xpath)) return Clean(tree, from).run(query, firstOnly);
    const pugi::xml_node branch = tree.parkedTop(from);
    const auto strange = [&](const pugi::xpath_node& found) {
      const pugi::xml_node node = elementOf(found);
      return tree.isParked(node) && tree.parkedTop(node) != branch;
    };
    Nodes nodes = run(query, from, firstOnly);
    if (firstOnly && branch && !nodes.empty() && strange(nodes.front())) nodes = run(query, from, false);
    std::erase_if(nodes, strange);
    if (firstOnly && nodes.size() > 1) nodes.resize(1);
    return nodes;
  } catch (const pugi::xpath_exception& error) {
    throw RuntimeError(RuntimeError::BadArgument, "cannot read the path " + xpath + ": " + error.what());
  }
}

}  // namespace ostrand
