#include "platform/base/Locale.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <vector>

namespace ostrand {

namespace {

using namespace std::chrono;

struct Fields {
  int year, month, day, hour, minute, second, millisecond;
};

Fields fieldsOf(LocalTime time) {
  const auto days = floor<std::chrono::days>(time);
  const year_month_day date(days);
  const hh_mm_ss clock(time - days);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(clock.subseconds().count())};
}

template <class... Args>
std::string print(const char* format, Args... args) {
  char buffer[64];
  const int length = std::snprintf(buffer, sizeof buffer, format, args...);
  return {buffer, static_cast<std::size_t>(length)};
}

bool compose(int year, int month, int day, LocalTime& time) {
  // The types of <chrono> would take 257 for 1.
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
  const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)), std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return false;
  time = local_days(date);
  return true;
}

bool compose(int hour, int minute, int second, milliseconds& clock) {
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return false;
  clock = hours(hour) + minutes(minute) + seconds(second);
  return true;
}

// The numbers in a text between single separators out of `separators`; empty if anything else stands there.
std::vector<int> numbersIn(std::string_view text, std::string_view separators) {
  std::vector<int> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (true) {
    int number = 0;
    const auto [next, error] = std::from_chars(at, end, number);
    if (error != std::errc() || number < 0) return {};
    numbers.push_back(number);
    if (next == end) return numbers;
    if (separators.find(*next) == separators.npos) return {};
    at = next + 1;
  }
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

constexpr std::size_t kLocales = 4;
const std::array<Locale, kLocales>& locales() {
  static const std::array<Locale, kLocales> all{{
      {"en", '.', Locale::DateForm::English},
      {"fi", ',', Locale::DateForm::Finnish},
      {"sv", ',', Locale::DateForm::Swedish},
      {"de", ',', Locale::DateForm::German},
  }};
  return all;
}

}  // namespace

const Locale* Locale::find(std::string_view name) {
  for (const Locale& locale : locales())
    if (locale.name == name) return &locale;
  return nullptr;
}

const Locale& Locale::english() { return locales()[0]; }

std::string Locale::date(LocalTime time) const {
  const Fields f = fieldsOf(time);
  switch (dateForm) {
    case DateForm::German: return print("%02d.%02d.%04d", f.day, f.month, f.year);
    case DateForm::Finnish: return print("%d.%d.%04d", f.day, f.month, f.year);
    case DateForm::Swedish: return print("%04d-%02d-%02d", f.year, f.month, f.day);
    case DateForm::English: break;
  }
  return print("%d/%d/%04d", f.month, f.day, f.year);
}

std::string Locale::time(LocalTime time) const {
  const Fields f = fieldsOf(time);
  switch (dateForm) {
    case DateForm::German:
    case DateForm::Swedish: return print("%02d:%02d:%02d", f.hour, f.minute, f.second);
    case DateForm::Finnish: return print("%d.%02d.%02d", f.hour, f.minute, f.second);
    case DateForm::English: break;
  }
  return print("%d:%02d:%02d %s", f.hour % 12 == 0 ? 12 : f.hour % 12, f.minute, f.second, f.hour < 12 ? "AM" : "PM");
}

std::string Locale::dateAndTime(LocalTime at) const { return date(at) + " " + time(at); }

bool readStandardDateAndTime(std::string_view text, LocalTime& time) {
  text = trimmed(text);
  const std::size_t blank = text.find(' ');
  if (blank == text.npos) return false;
  const auto date = numbersIn(text.substr(0, blank), "-");
  const auto clock = numbersIn(trimmed(text.substr(blank)), ":.");
  LocalTime day{};
  milliseconds inDay{};
  if (date.size() != 3 || clock.size() != 3 || !compose(date[0], date[1], date[2], day) || !compose(clock[0], clock[1], clock[2], inDay)) return false;
  time = day + inDay;
  return true;
}

bool readDate(std::string_view text, const Locale& locale, LocalTime& time) {
  text = trimmed(text);
  if (const auto standard = numbersIn(text, "-"); standard.size() == 3) return compose(standard[0], standard[1], standard[2], time);
  const auto own = numbersIn(text, "./");
  if (own.size() != 3) return false;
  if (locale.dateForm == Locale::DateForm::English) return compose(own[2], own[0], own[1], time);
  return compose(own[2], own[1], own[0], time);
}

bool readTime(std::string_view text, const Locale&, LocalTime& time) {
  text = trimmed(text);
  int half = -1;
  for (const auto& [mark, value] : {std::pair{" AM", 0}, {" PM", 1}, {" am", 0}, {" pm", 1}})
    if (text.ends_with(mark)) half = value, text.remove_suffix(3);
  auto parts = numbersIn(text, ":.");
  if (parts.size() == 2) parts.push_back(0);
  if (parts.size() != 3) return false;
  if (half >= 0) {
    if (parts[0] < 1 || parts[0] > 12) return false;
    parts[0] = parts[0] % 12 + 12 * half;
  }
  milliseconds clock{};
  if (!compose(parts[0], parts[1], parts[2], clock)) return false;
  time = LocalTime(clock);
  return true;
}

std::string standardDateAndTime(LocalTime time) {
  const Fields f = fieldsOf(time);
  return print("%04d-%02d-%02d %02d:%02d:%02d.%03d", f.year, f.month, f.day, f.hour, f.minute, f.second, f.millisecond);
}

std::string standardDate(LocalTime time) {
  const Fields f = fieldsOf(time);
  return print("%04d-%02d-%02d", f.year, f.month, f.day);
}

std::string standardTime(LocalTime time) {
  const Fields f = fieldsOf(time);
  return print("%02d:%02d:%02d", f.hour, f.minute, f.second);
}

}  // namespace ostrand
