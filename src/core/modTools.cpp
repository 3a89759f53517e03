#include "core/modTools.h"

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand::modTools {

double ToLocalNumber(std::string_view text, const Locale& locale) {
  const char separator = locale.decimalSeparator;
  return requireNumber(withSeparator(std::string(text), '.', separator), separator);
}

std::string ToDocumentNumber(double value, const Locale& locale) {
  const char separator = locale.decimalSeparator;
  return withSeparator(plainText(value, separator), separator, '.');
}

namespace {

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }

// Where the n-th character of a UTF-8 text begins, or its end. A separator may take more than one byte.
std::size_t startOf(std::string_view text, std::size_t character) {
  std::size_t at = 0;
  for (; at < text.size(); ++at)
    if (beginsCharacter(text[at]) && character-- == 0) break;
  return at;
}

std::string_view lastOf(std::string_view text, std::size_t characters) {
  std::size_t at = text.size();
  while (at > 0 && characters > 0)
    if (beginsCharacter(text[--at])) --characters;
  return text.substr(at);
}

}  // namespace

std::string StandardizeDatafileDate(std::string_view stamp) {
  const std::size_t day = startOf(stamp, 2), month = startOf(stamp, 3), monthEnd = startOf(stamp, 5), year = startOf(stamp, 6);
  const std::string_view last = lastOf(stamp, 8);
  std::string text;
  text.reserve(stamp.size() + 4);
  text += stamp.substr(year, startOf(stamp, 10) - year);
  text += '-';
  text += stamp.substr(month, monthEnd - month);
  text += '-';
  text += stamp.substr(0, day);
  text += ' ';
  text += last;
  return text;
}

std::string LocalizeDatafileDate(std::string_view stamp, Desktop& desktop) {
  const std::string standard = StandardizeDatafileDate(stamp);
  LocalTime time;
  if (readStandardDateAndTime(standard, time)) return desktop.locale().dateAndTime(time);
  DebugTrace(desktop, "DTM GUI modTools", "LocalizeDatafileDate", RuntimeError::NotConvertible, "not a date: \"" + standard + "\"");
  return {};
}

void DebugTrace(Desktop& desktop, const std::string& source, const std::string& procedure, int number, const std::string& description) {
  desktop.debugOutput(source + " " + procedure + " error " + std::to_string(number) + ": " + description);
}

void DropTrace(const std::string&) {}

std::string groupOfParameter(const Document& doc, std::string_view name) { return homeGroup(doc, name); }

std::string presentDateAndTime(const Desktop& desktop) { return desktop.locale().dateAndTime(desktop.now()); }

}  // namespace ostrand::modTools
