#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

// A word of an input line: bare, or a text in double quotes without them and their escapes.
struct Word {
  std::string text;
  bool quoted = false;
  std::size_t begin = 0;  // where it stands in the line
};

// RuntimeError 5 with the reason for a text without an end, an unknown escape, or a text that runs into a word. A bare
// word may end in a text behind "=" (tag="a b").
std::vector<Word> readWords(std::string_view line);

}  // namespace ostrand
