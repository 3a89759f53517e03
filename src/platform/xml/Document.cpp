#include "platform/xml/Document.h"

#include <algorithm>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Encoding.h"
#include "platform/xml/Prefixes.h"
#include "platform/xml/StringWriter.h"

namespace ostrand {

namespace {

// Parsing in place destroys line ends, so a fault's place must be known from before.
class Lines {
 public:
  explicit Lines(const std::string& text) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos;) mStarts.push_back(++at);
  }

  std::string placeOf(std::ptrdiff_t offset) const {
    const auto at = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    const auto next = std::upper_bound(mStarts.begin(), mStarts.end(), at);
    const std::size_t start = next == mStarts.begin() ? 0 : *std::prev(next);
    return "line " + std::to_string(next - mStarts.begin() + 1) + ", column " + std::to_string(at - start + 1);
  }

 private:
  std::vector<std::size_t> mStarts;  // of the second line and those behind it
};

// Inside and in what we write all text is UTF-8, whatever it was read from.
void relabel(pugi::xml_document& document, pugi::xml_encoding readAs) {
  for (pugi::xml_node node : document.children()) {
    if (node.type() != pugi::node_declaration) continue;
    pugi::xml_attribute encoding = node.attribute("encoding");
    const std::string_view label = encoding.value();
    if (encoding && (readAs != pugi::encoding_utf8 || label.starts_with("UTF-16") || label.starts_with("utf-16"))) encoding.set_value("UTF-8");
  }
}

}  // namespace

Document Document::read(std::string text) {
  text = narrowed(std::move(text));
  const std::size_t declarations = countNamespaceDeclarations(text);
  const Lines lines(text);
  const auto fail = [&](const std::string& why, std::ptrdiff_t offset) {
    throw RuntimeError(RuntimeError::BadArgument, "not a document: " + why + " at " + lines.placeOf(offset));
  };
  Ref<Tree> tree(new Tree);
  tree->text = std::move(text);
  // A value of blanks is a value; blanks between elements are none.
  constexpr unsigned kWhat = pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration | pugi::parse_ws_pcdata_single;
  const pugi::xml_parse_result result = tree->document.load_buffer_inplace(tree->text.data(), tree->text.size(), kWhat);
  if (!result) fail(result.description(), result.offset);
  for (pugi::xml_node next = tree->document.document_element().next_sibling(); next; next = next.next_sibling())
    if (next.type() == pugi::node_element) fail("a second root element", next.offset_debug());
  relabel(tree->document, result.encoding);
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

Document Document::copy() const {
  const Node above = top();
  Ref<Tree> tree(new Tree);
  for (pugi::xml_node child : above.raw().children())
    if (!isHidden(child)) tree->document.append_copy(child);
  return Document(std::move(tree));
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
    if (isHidden(child)) continue;
    child.print(writer, "  ", indented ? pugi::format_indent : pugi::format_raw);
    if (!indented && child.type() == pugi::node_declaration) writer.text += '\n';
  }
  return std::move(writer.text);
}

}  // namespace ostrand
