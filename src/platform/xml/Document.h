#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/xml/Node.h"

namespace ostrand {

// A handle to a whole document. Copies share one tree. The prefixes `data:`, `comm:` and `typeInfo:` stand
// in it for their namespaces, however the text spelled them.
class Document {
 public:
  Document() = default;
  explicit Document(Ref<Tree> tree) : mTree(std::move(tree)) {}

  // UTF-8 or UTF-16 text. External entities and document types are never read; a text that is no document
  // throws RuntimeError 5 with the place of the fault. Takes the text over without a copy.
  static Document read(std::string text);
  // Throws also 53 (not found) and 70 (not readable).
  static Document readFile(const std::filesystem::path& path);

  // A document of its own with the same contents, detached nodes left behind. An empty handle is error 91.
  Document copy() const;

  explicit operator bool() const { return static_cast<bool>(mTree); }
  friend bool operator==(const Document& a, const Document& b) { return a.mTree == b.mTree; }

  Node root() const;
  // As the functions of Node, from above the root element.
  Node select(const std::string& xpath) const;
  std::vector<Node> selectAll(const std::string& xpath) const;
  std::optional<std::string> selectText(const std::string& xpath) const;

  // The whole document, in one line, or with two blanks of indent for each level.
  std::string xml(bool indented = false) const;

  const Ref<Tree>& tree() const { return mTree; }

 private:
  Node top() const;
  Ref<Tree> mTree;
};

}  // namespace ostrand
