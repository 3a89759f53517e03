#pragma once

#include <filesystem>

namespace ostrand {

// The folder with device data sets, text tables, units and tree document: OSTRAND_DATA, else data or share/ostrand/data beside
// the program or up to two folders above it. RuntimeError 53 says where it was looked for.
std::filesystem::path dataFolder();

// Whether there is such a file; one that cannot be looked at is not there.
bool isThere(const std::filesystem::path& file);

}  // namespace ostrand
