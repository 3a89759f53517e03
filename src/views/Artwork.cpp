#include "views/Artwork.h"

#include <string>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Document.h"
#include "views/ArtworkDrawings.h"  // made by the build

namespace ostrand {

Picture artwork(std::string_view family, std::string_view key) {
  const std::string name = std::string(family) + "-" + std::string(key);
  for (const auto& [drawing, svg] : kArtworkDrawings) {
    if (drawing != name) continue;
    const Node root = Document::read(std::string(svg)).root();
    const auto pixels = [&](const char* attribute) { return static_cast<int>(parseInteger(root.attribute(attribute)).value_or(0)); };
    return {pixels("width"), pixels("height"), std::string(svg)};
  }
  throw RuntimeError(RuntimeError::FileNotFound, "there is no drawing " + name);
}

}  // namespace ostrand
