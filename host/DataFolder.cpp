#include "host/DataFolder.h"

#include <cstdlib>

#include "host/ServerLibrary.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

std::filesystem::path dataFolder() {
  std::error_code ignored;
  if (const char* const told = std::getenv("OSTRAND_DATA"); told && *told) {
    if (!std::filesystem::is_directory(told, ignored))
      throw RuntimeError(RuntimeError::FileNotFound, std::string("OSTRAND_DATA names no folder: ") + told);
    return told;
  }
  const std::filesystem::path program = programFolder();
  // A build folder lies one or two folders deep in its source tree.
  for (const std::filesystem::path& above : {program, program.parent_path(), program.parent_path().parent_path()})
    for (const std::filesystem::path& folder : {above / "data", above / "share" / "ostrand" / "data"})
      if (std::filesystem::is_directory(folder / "devices", ignored)) return folder;
  throw RuntimeError(RuntimeError::FileNotFound, "no data folder near " + program.string() + ": set OSTRAND_DATA to it");
}

bool isThere(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::exists(file, ignored);
}

}  // namespace ostrand
