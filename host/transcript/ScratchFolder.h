#pragma once

#include <filesystem>
#include <string>

namespace ostrand {

// A folder for the files of one transcript: made when first asked for, gone with the object.
class ScratchFolder {
 public:
  ScratchFolder() = default;
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  // RuntimeError 70 if it cannot be made.
  const std::filesystem::path& path();

 private:
  std::filesystem::path mPath;
};

}  // namespace ostrand
