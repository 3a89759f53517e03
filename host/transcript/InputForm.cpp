#include "host/transcript/InputForm.h"

#include <climits>

#include "host/transcript/ControlPath.h"
#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

bool isInteger(const std::string& text) {
  const auto number = parseInteger(text);
  return number && *number >= INT_MIN && *number <= INT_MAX;
}

bool isOf(char kind, const Word& word) {
  switch (kind) {
    case 'i': return !word.quoted && isInteger(word.text);
    case 'n': return !word.quoted && parseNumber(word.text, '.').value_or(-1.0) >= 0.0;
    case 'b': return !word.quoted && (word.text == "true" || word.text == "false");
    case 'o': return !word.quoted && (word.text == "on" || word.text == "off");
    case 'p': return PropertyName::read(word.text).has_value();
    default: return true;
  }
}

}  // namespace

bool hasForm(std::string_view form, std::span<const Word> arguments) {
  bool optional = false;
  std::size_t at = 0;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] == '?') {
      optional = true;
    } else if (form[i] == '*') {
      while (at < arguments.size()) {
        if (!isOf(form[i - 1], arguments[at++])) return false;
      }
    } else if (at == arguments.size()) {
      if (!optional) return false;
    } else if (!isOf(form[i], arguments[at++])) {
      return false;
    }
  }
  return at == arguments.size();
}

}  // namespace ostrand
