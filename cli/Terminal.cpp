#include "cli/Terminal.h"

#include <algorithm>
#include <cstdlib>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "platform/base/Characters.h"

namespace ostrand {

namespace {

bool isTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

const char* codeOf(Terminal::Style style) {
  switch (style) {
    case Terminal::Style::Heading: return "1";
    case Terminal::Style::Dim: return "2";
    case Terminal::Style::Good: return "32";
    case Terminal::Style::Bad: return "31";
    case Terminal::Style::Blue: return "34";
    case Terminal::Style::Magenta: return "35";
    case Terminal::Style::Cyan: return "36";
    case Terminal::Style::Yellow: return "33";
    case Terminal::Style::Plain: break;
  }
  return "0";
}

}  // namespace

Terminal::Terminal(std::FILE* stream) : mStream(stream), mWatched(isTerminal(stream)) {
  const char* const noColour = std::getenv("NO_COLOR");
  const char* const kind = std::getenv("TERM");
  mColours = mWatched && !(noColour && *noColour) && !(kind && std::string_view(kind) == "dumb");
}

std::string Terminal::styled(std::string_view text, Style style) const {
  if (!mColours || style == Style::Plain || text.empty()) return std::string(text);
  return "\033[" + std::string(codeOf(style)) + "m" + std::string(text) + "\033[0m";
}

void Terminal::print(std::string_view text) const {
  std::fwrite(text.data(), 1, text.size(), mStream);
  if (mWatched) std::fflush(mStream);
}

void Terminal::line(std::string_view text) const { print(std::string(text) + "\n"); }

void Terminal::back(std::size_t lines) const {
  if (mWatched && lines > 0) print("\033[" + std::to_string(lines) + "A\033[J");
}

std::string padded(std::string_view text, std::size_t places, bool right) {
  const std::size_t has = characterCount(text);
  const std::string blanks(places > has ? places - has : 0, ' ');
  return right ? blanks + std::string(text) : std::string(text) + blanks;
}

std::vector<std::string> aligned(const std::vector<std::vector<std::string>>& rows, const std::vector<std::size_t>& right) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i == widths.size()) widths.push_back(0);
      widths[i] = std::max(widths[i], characterCount(row[i]));
    }
  std::vector<std::string> lines;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
      line += (i ? "  " : "") + padded(row[i], widths[i], std::find(right.begin(), right.end(), i) != right.end());
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace ostrand
