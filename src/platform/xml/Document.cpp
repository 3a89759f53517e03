#include "platform/xml/Document.h"

#include <algorithm>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Encoding.h"
#include "platform/xml/Prefixes.h"

namespace ostrand {

namespace {

std::string placeOf(const std::string& text, std::ptrdiff_t offset) {
  const auto end = text.begin() + std::clamp<std::ptrdiff_t>(offset, 0, static_cast<std::ptrdiff_t>(text.size()));
  const auto line = 1 + std::count(text.begin(), end, '\n');
  const auto start = std::find(std::make_reverse_iterator(end), text.rend(), '\n').base();
  return "line " + std::to_string(line) + ", column " + std::to_string(end - start + 1);
}

class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
  std::string text;
};

}  // namespace

Document Document::read(std::string text) {
  text = narrowed(std::move(text));
  const std::size_t declarations = countNamespaceDeclarations(text);
  Ref<Tree> tree(new Tree);
  tree->text = std::move(text);
  constexpr unsigned kWhat = pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration;
  const pugi::xml_parse_result result = tree->document.load_buffer_inplace(tree->text.data(), tree->text.size(), kWhat);
  if (!result)
    throw RuntimeError(RuntimeError::BadArgument, std::string("not a document: ") + result.description() + " at " + placeOf(tree->text, result.offset));
  makePrefixesCanonical(tree->document, declarations);
  return Document(std::move(tree));
}

Document Document::readFile(const std::filesystem::path& path) {
  std::string text = readWholeFile(path);
  try {
    return read(std::move(text));
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), path.string() + ": " + error.description());
  }
}

Node Document::top() const {
  if (!mTree) throwNothingThere("the document");
  return {mTree, mTree->document};
}

Node Document::root() const {
  const Node above = top();
  return above.firstChild();
}

Node Document::select(const std::string& xpath) const { return top().select(xpath); }

std::vector<Node> Document::selectAll(const std::string& xpath) const { return top().selectAll(xpath); }

std::optional<std::string> Document::selectText(const std::string& xpath) const { return top().selectText(xpath); }

std::string Document::xml(bool indented) const {
  const Node above = top();
  StringWriter writer;
  for (pugi::xml_node child : above.raw().children()) {
    if (child.name()[0] == '#') continue;
    child.print(writer, "  ", indented ? pugi::format_indent : pugi::format_raw);
    if (!indented && child.type() == pugi::node_declaration) writer.text += '\n';
  }
  return std::move(writer.text);
}

}  // namespace ostrand
