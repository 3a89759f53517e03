#include "platform/xml/Encoding.h"

#include <cstdint>

namespace ostrand {

namespace {

void appendUtf8(std::string& out, std::uint32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> 6);
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | c >> 12);
    out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | c >> 18);
    out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

}  // namespace

std::string narrowed(std::string text) {
  if (text.size() < 4) return text;
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const bool utf32 = (byte(0) == 0 && byte(1) == 0) || (byte(2) == 0 && byte(3) == 0);
  const bool little = (byte(0) == 0xFF && byte(1) == 0xFE) || (byte(0) == '<' && byte(1) == 0);
  const bool big = (byte(0) == 0xFE && byte(1) == 0xFF) || (byte(0) == 0 && byte(1) == '<');
  if (utf32 || (!little && !big)) return text;

  constexpr std::uint32_t kReplacement = 0xFFFD;
  const auto unit = [&](std::size_t i) -> std::uint32_t { return little ? byte(i) | byte(i + 1) << 8 : byte(i) << 8 | byte(i + 1); };
  std::string out;
  out.reserve(text.size() / 2);
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    std::uint32_t c = unit(i);
    if (c >= 0xD800 && c < 0xDC00 && i + 3 < text.size() && unit(i + 2) >= 0xDC00 && unit(i + 2) < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    } else if (c >= 0xD800 && c < 0xE000) {
      c = kReplacement;
    }
    if (c != 0xFEFF || i != 0) appendUtf8(out, c);
  }
  return out;
}

}  // namespace ostrand
