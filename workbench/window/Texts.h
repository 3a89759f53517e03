#pragma once

#include <QString>
#include <string>

#include "host/TextTables.h"
#include "platform/types/ITextTable.h"

namespace ostrand {

// The user's language for the window around the views. What the text tables have no key for stands in English.
class Texts {
 public:
  Texts() = default;
  // `fileTable` is nothing for a language that is not in a file.
  Texts(Ref<ITextTable> table, Ref<TextTable> fileTable) : mTable(std::move(table)), mFileTable(std::move(fileTable)) {}

  // The text of a key; the key itself where there is none.
  QString operator()(const std::string& key) const;
  QString operator()(const std::string& key, const char* english) const;
  // As a unit is shown; empty for "noUnit".
  QString unit(const std::string& key) const;

 private:
  Ref<ITextTable> mTable;
  Ref<TextTable> mFileTable;
};

inline QString qt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace ostrand
