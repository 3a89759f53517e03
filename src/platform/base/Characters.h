#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ostrand {

// Characters of an UTF-8 text, not bytes.
inline std::size_t characterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace ostrand
