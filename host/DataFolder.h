#pragma once

#include <filesystem>

namespace ostrand {

// The folder with device data sets, text tables, units and tree document: OSTRAND_DATA, else `data` beside or above the
// program's folder (a source tree), else share/ostrand/data beside bin. RuntimeError 53 says where it was looked for.
std::filesystem::path dataFolder();

}  // namespace ostrand
