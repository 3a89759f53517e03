#include "host/TextTable.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

template <class Texts>
void readTexts(const Node& parent, Texts& texts) {
  for (Node each = parent.firstChild(); each; each = each.nextSibling())
    if (each.name() == "text") texts.emplace(std::string(each.findAttribute("key").value_or("")), each.text());
}

}  // namespace

TextTable::TextTable(const Document& document) {
  const Node root = document.root();
  if (!root || root.name() != "texts") throw RuntimeError(RuntimeError::BadArgument, "not a text table: its root is not \"texts\"");
  readTexts(root, mTexts);
  for (Node each = root.firstChild(); each; each = each.nextSibling())
    if (each.name() == "section") readTexts(each, mSections[std::string(each.findAttribute("name").value_or(""))]);
}

std::string TextTable::GetText(const std::string& key) {
  const auto found = mTexts.find(key);
  return found == mTexts.end() ? key : found->second;
}

std::string TextTable::GetSectionText(const std::string& key, const std::string& section) {
  const auto texts = mSections.find(section);
  if (texts == mSections.end()) return key;
  const auto found = texts->second.find(key);
  return found == texts->second.end() ? key : found->second;
}

bool TextTable::hasSectionText(std::string_view key, std::string_view section) const {
  const auto texts = mSections.find(section);
  return texts != mSections.end() && texts->second.contains(key);
}

}  // namespace ostrand
