#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

// Text on the way to a terminal, a pipe or a file. Colours only on a terminal, and not with NO_COLOR; the same words in
// every case.
class Terminal {
 public:
  enum class Style { Plain, Heading, Dim, Good, Bad, Blue, Magenta, Cyan, Yellow };

  explicit Terminal(std::FILE* stream = stdout);

  // Somebody watches: things may take the time that they take.
  bool isWatched() const { return mWatched; }
  std::string styled(std::string_view text, Style style) const;
  void print(std::string_view text) const;
  void line(std::string_view text = {}) const;
  // Moves back over so many lines, to write them anew; does nothing where nobody watches.
  void back(std::size_t lines) const;

 private:
  std::FILE* mStream;
  bool mWatched;
  bool mColours;
};

// A UTF-8 text with blanks up to so many characters.
std::string padded(std::string_view text, std::size_t places, bool right = false);
// Lines with aligned columns, two blanks between; no blanks at the end of a line. `right` columns count from 0.
std::vector<std::string> aligned(const std::vector<std::vector<std::string>>& rows, const std::vector<std::size_t>& right = {});

}  // namespace ostrand
