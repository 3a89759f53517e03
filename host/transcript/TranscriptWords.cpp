#include "host/transcript/TranscriptWords.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

[[noreturn]] void malformed(const std::string& why) { throw RuntimeError(RuntimeError::BadArgument, why); }

// The text whose opening quote stands at `at`; moves `at` behind the closing one.
std::string readQuoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size(); ++at) {
    const char c = line[at];
    if (c == '"') {
      ++at;
      if (at < line.size() && !isBlank(line[at])) malformed("a text must be followed by a blank");
      return text;
    }
    if (c != '\\') {
      text += c;
      continue;
    }
    const char escaped = ++at < line.size() ? line[at] : '\0';
    switch (escaped) {
      case '"': text += '"'; break;
      case '\\': text += '\\'; break;
      case 'n': text += '\n'; break;
      case 'r': text += '\r'; break;
      case 't': text += '\t'; break;
      case '\0': malformed("a text in double quotes has no end");
      default: malformed(std::string("no such escape: \\") + escaped);
    }
  }
  malformed("a text in double quotes has no end");
}

}  // namespace

std::vector<Word> readWords(std::string_view line) {
  std::vector<Word> words;
  std::size_t at = 0;
  for (;;) {
    while (at < line.size() && isBlank(line[at])) ++at;
    if (at == line.size()) return words;
    Word word{{}, line[at] == '"', at};
    if (word.quoted) {
      word.text = readQuoted(line, at);
    } else {
      for (; at < line.size() && !isBlank(line[at]); ++at) {
        if (line[at] == '"' && word.text.ends_with('=') && word.text.find_first_of("[(") == word.text.npos) {
          word.text += readQuoted(line, at);
          break;
        }
        word.text += line[at];
      }
    }
    words.push_back(std::move(word));
  }
}

}  // namespace ostrand
