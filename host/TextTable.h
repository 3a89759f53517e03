#pragma once

#include <map>
#include <string>
#include <string_view>

#include "host/HostObject.h"
#include "platform/types/ITextTable.h"
#include "platform/xml/Document.h"

namespace ostrand {

// The texts of one language. A key without a text gives itself; a label is the text of its key.
class TextTable : public HostObject<ITextTable> {
 public:
  // RuntimeError 5 if this is no text table.
  explicit TextTable(const Document& document);

  std::string GetText(const std::string& key) override;
  std::string GetLabel(const std::string& key) override { return GetText(key); }
  std::string GetSectionText(const std::string& key, const std::string& section) override;

  bool hasText(std::string_view key) const { return mTexts.contains(key); }
  bool hasSectionText(std::string_view key, std::string_view section) const;

 private:
  using Texts = std::map<std::string, std::string, std::less<>>;
  Texts mTexts;
  std::map<std::string, Texts, std::less<>> mSections;
};

// Every key is its own text.
class KeyTable : public HostObject<ITextTable> {
 public:
  std::string GetText(const std::string& key) override { return key; }
  std::string GetLabel(const std::string& key) override { return key; }
  std::string GetSectionText(const std::string& key, const std::string&) override { return key; }
};

// Shows which operation was asked for which key.
class ProbeTable : public HostObject<ITextTable> {
 public:
  std::string GetText(const std::string& key) override { return "T:" + key; }
  std::string GetLabel(const std::string& key) override { return "L:" + key; }
  std::string GetSectionText(const std::string& key, const std::string& section) override { return "S:" + key + ":" + section; }
};

}  // namespace ostrand
