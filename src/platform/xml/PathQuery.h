#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "platform/xml/Tree.h"

namespace ostrand {

// What a path selects from this node, in document order; with `firstOnly` at most one. Detached nodes are no
// part of the document: a path meets them only if it starts in one, and then only those of its own branch.
// A path that cannot be read, or that selects no nodes but a value, throws RuntimeError 5.
std::vector<pugi::xpath_node> evaluatePath(Tree& tree, pugi::xml_node from, const std::string& xpath, bool firstOnly);

}  // namespace ostrand
