#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ostrand {

// Folders of this machine, which no output of a transcript shows: it reads the same wherever the tree and the temporary
// files lie.
class HiddenFolders {
 public:
  // An absolute one; the root of the file system stays visible.
  void add(const std::filesystem::path& folder);
  // The text without these folders and their separators. Of folders that lie in each other the innermost goes.
  std::string shown(std::string text) const;

 private:
  std::vector<std::string> mPrefixes;  // with their closing separators, the longest first
};

}  // namespace ostrand
