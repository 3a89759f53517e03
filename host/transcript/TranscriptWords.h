#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

// A word of an input line: bare, or a text in double quotes without them and their escapes.
struct TranscriptWord {
  std::string text;
  bool quoted = false;
};

// The number of a word that is a whole one.
int numberOf(const TranscriptWord& word);

// RuntimeError 5 with the reason for a text without an end, an unknown escape, or a text that runs into a word. A bare
// word may end in a text behind "=" (tag="a b").
std::vector<TranscriptWord> readWords(std::string_view line);

// The same for an input, where the last argument of some commands is the rest of the line as it stands: an input inside of
// another, and a path, which may hold blanks and quotes of its own.
std::vector<TranscriptWord> readInput(std::string_view line);

}  // namespace ostrand
