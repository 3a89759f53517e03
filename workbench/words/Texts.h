#pragma once

#include <QString>
#include <filesystem>
#include <string>

#include "host/TextTables.h"
#include "platform/types/ITextTable.h"

namespace ostrand {

// The user's language for the window around the views: the texts of the mill's tables, and the window's own words.
class Texts {
 public:
  Texts() = default;
  Texts(Ref<ITextTable> table, std::string language) : mTable(std::move(table)), mLanguage(std::move(language)) {}

  // The text of a key; the key itself where there is none.
  QString operator()(const std::string& key) const;
  // The window's own words, in the user's language.
  QString say(const char* english) const;
  // What is measured ("temperature"), as a heading.
  QString quantity(const std::string& name) const;
  // As a unit is shown; empty for "noUnit".
  QString unit(const std::string& key) const;

 private:
  Ref<ITextTable> mTable;
  std::string mLanguage;
};

inline QString qt(const std::string& text) { return QString::fromStdString(text); }
// A file as it is called to the user: without its folder.
inline QString fileName(const std::filesystem::path& file) { return QString::fromStdU16String(file.filename().u16string()); }

}  // namespace ostrand
