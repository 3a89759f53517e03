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
  for (const std::filesystem::path& folder : {program / "data", program.parent_path() / "data", program.parent_path() / "share" / "ostrand" / "data"})
    if (std::filesystem::is_directory(folder / "devices", ignored)) return folder;
  throw RuntimeError(RuntimeError::FileNotFound, "no data folder near " + program.string() + ": set OSTRAND_DATA to it");
}

}  // namespace ostrand
