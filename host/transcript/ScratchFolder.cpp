#include "host/transcript/ScratchFolder.h"

#include <random>

#include "platform/base/RuntimeError.h"

namespace ostrand {

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  if (!mPath.empty()) std::filesystem::remove_all(mPath, ignored);
}

const std::filesystem::path& ScratchFolder::path() {
  if (!mPath.empty()) return mPath;
  constexpr int kAttempts = 100;
  std::random_device random;
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  for (int i = 0; i < kAttempts && !error; ++i) {
    const std::filesystem::path folder = parent / ("ostrand-" + std::to_string(random()));
    if (std::filesystem::create_directory(folder, error)) return mPath = folder;
  }
  throw RuntimeError(RuntimeError::PermissionDenied, parent.string() + ": a folder cannot be made here");
}

}  // namespace ostrand
