#include "host/transcript/InputForm.h"

#include <climits>

#include "host/transcript/ControlPath.h"
#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

bool isInteger(const TranscriptWord& word, int least, int most) {
  const auto number = word.quoted ? std::nullopt : parseInteger(word.text);
  return number && *number >= least && *number <= most;
}

bool isBool(const TranscriptWord& word) { return !word.quoted && (word.text == "true" || word.text == "false"); }

// "{tab|shift}": one of these.
bool isAmong(std::string_view choices, const TranscriptWord& word) {
  choices = choices.substr(1, choices.size() - 2);
  for (;;) {
    const std::size_t bar = choices.find('|');
    if (word.text == choices.substr(0, bar)) return true;
    if (bar == choices.npos) return false;
    choices.remove_prefix(bar + 1);
  }
}

bool isOf(std::string_view kind, const TranscriptWord& word) {
  switch (kind.front()) {
    case 'i': return isInteger(word, INT_MIN, INT_MAX);
    case 'y': return isInteger(word, 0, UINT8_MAX);
    case 'n': return !word.quoted && parseNumber(word.text, '.').value_or(-1.0) >= 0.0;
    case 'b': return isBool(word);
    case 'o': return !word.quoted && (word.text == "on" || word.text == "off");
    case 'p': return PropertyName::read(word.text).has_value();
    case 'v': return word.quoted || isBool(word) || isInteger(word, INT_MIN, INT_MAX);
    case '{': return isAmong(kind, word);
    default: return true;
  }
}

// Takes the first kind off a form.
std::string_view takeKind(std::string_view& form) {
  const std::size_t length = form.front() == '{' ? form.find('}') + 1 : 1;
  const std::string_view kind = form.substr(0, length);
  form.remove_prefix(length);
  return kind;
}

}  // namespace

bool hasForm(std::string_view form, std::span<const TranscriptWord> arguments) {
  bool optional = false;
  std::size_t at = 0;
  std::string_view last;
  while (!form.empty()) {
    const std::string_view kind = takeKind(form);
    if (kind == "?") {
      optional = true;
    } else if (kind == "*") {
      while (at < arguments.size()) {
        if (!isOf(last, arguments[at++])) return false;
      }
    } else if (at == arguments.size()) {
      if (!optional) return false;
    } else if (!isOf(kind, arguments[at++])) {
      return false;
    }
    last = kind;
  }
  return at == arguments.size();
}

}  // namespace ostrand
