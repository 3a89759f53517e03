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

std::string StandardizeDatafileDate(std::string_view stamp) {
  const auto piece = [&](std::size_t from, std::size_t count) { return std::string(from < stamp.size() ? stamp.substr(from, count) : std::string_view()); };
  const std::string time(stamp.size() > 8 ? stamp.substr(stamp.size() - 8) : stamp);
  return piece(6, 4) + "-" + piece(3, 2) + "-" + piece(0, 2) + " " + time;
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
