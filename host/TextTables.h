#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "host/TextTable.h"

namespace ostrand {

// The languages of a folder: one file each, named by its code ("fi.xml"). Beside them there are always `keys`, in which
// every key is its own text, and `probe`, which shows what was asked.
class TextTables {
 public:
  struct Language {
    std::string code;
    std::string name;  // as its speakers call it
  };

  // A folder that is not there has no languages.
  explicit TextTables(std::filesystem::path folder) : mFolder(std::move(folder)) {}

  // Those of the folder by code; a file that cannot be read is still a language, named by its code.
  std::vector<Language> languages() const;
  // Read when first asked for. RuntimeError 5 for a language that there is not, or a damaged file; 70 for one that cannot
  // be read.
  Ref<ITextTable> table(const std::string& language);
  // The same for one with a file; nothing for the two built-in ones.
  Ref<TextTable> fileTable(const std::string& language);

 private:
  std::filesystem::path mFolder;
  std::map<std::string, Ref<TextTable>> mTables;
};

}  // namespace ostrand
