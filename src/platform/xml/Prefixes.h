#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string_view>

namespace ostrand {

// How often a text declares a namespace; to be asked before the text is parsed in place.
std::size_t countNamespaceDeclarations(std::string_view text);

// Renames elements, attributes and declarations so that `comm:`, `data:` and `typeInfo:` stand for their
// namespaces. A document that says so already costs one look at its root, as long as all of its
// `declarations` stand there.
void makePrefixesCanonical(pugi::xml_document& document, std::size_t declarations);

}  // namespace ostrand
