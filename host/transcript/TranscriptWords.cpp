#include "host/transcript/TranscriptWords.h"

#include <cstddef>

#include "platform/base/NumberText.h"
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

// The word that begins at `at`; moves `at` behind it.
TranscriptWord readWord(std::string_view line, std::size_t& at) {
  TranscriptWord word{{}, line[at] == '"'};
  if (word.quoted) {
    word.text = readQuoted(line, at);
    return word;
  }
  for (; at < line.size() && !isBlank(line[at]); ++at) {
    if (line[at] == '"' && word.text.ends_with('=') && word.text.find_first_of("[(") == word.text.npos) {
      word.text += readQuoted(line, at);
      return word;
    }
    word.text += line[at];
  }
  return word;
}

void passBlanks(std::string_view line, std::size_t& at) {
  while (at < line.size() && isBlank(line[at])) ++at;
}

}  // namespace

int numberOf(const TranscriptWord& word) { return static_cast<int>(parseInteger(word.text).value_or(0)); }

std::vector<TranscriptWord> readWords(std::string_view line) {
  std::vector<TranscriptWord> words;
  std::size_t at = 0;
  for (passBlanks(line, at); at < line.size(); passBlanks(line, at)) words.push_back(readWord(line, at));
  return words;
}

std::vector<TranscriptWord> readInput(std::string_view line) {
  constexpr std::size_t kWordsBeforeRest = 2;
  std::vector<TranscriptWord> words;
  std::size_t at = 0;
  for (passBlanks(line, at); at < line.size(); passBlanks(line, at)) {
    const bool hasRest = !words.empty() && (words[0].text == "during" || words[0].text == "document");
    if (hasRest && words.size() == kWordsBeforeRest && line[at] != '"') {
      words.push_back({std::string(line.substr(at)), false});
      return words;
    }
    words.push_back(readWord(line, at));
  }
  return words;
}

}  // namespace ostrand
