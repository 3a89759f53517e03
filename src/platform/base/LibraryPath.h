#pragma once

#include <filesystem>

namespace ostrand {

// The absolute path of the library or program that holds this address; empty if the system does not tell.
std::filesystem::path libraryPathOf(const void* address);

}  // namespace ostrand
