#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ostrand {

// Throws RuntimeError 53 (not found) or 70 (not readable).
std::string readWholeFile(const std::filesystem::path& path);

// Whole or not at all: writes beside the file, flushes to the disk and renames. On a failure (RuntimeError
// 70) the old file stands as it was and nothing is left beside it.
void writeWholeFile(const std::filesystem::path& path, std::string_view text);

}  // namespace ostrand
