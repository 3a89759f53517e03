#include "platform/base/Locale.h"

#include <array>
#include <charconv>
#include <initializer_list>

#include "platform/base/NumberText.h"

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

struct Part {
  int number;
  std::ptrdiff_t width = 1;  // filled up with zeros
};

// Every page has its stamps: the C library's formats would take longer than all else in one.
std::string joined(char between, std::initializer_list<Part> parts) {
  std::string text;
  for (const Part& part : parts) {
    if (!text.empty()) text += between;
    char digits[12];
    char* const end = std::to_chars(digits, digits + sizeof digits, part.number).ptr;
    if (const std::ptrdiff_t missing = part.width - (end - digits); missing > 0) text.append(static_cast<std::size_t>(missing), '0');
    text.append(digits, static_cast<std::size_t>(end - digits));
  }
  return text;
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

// The numbers in a text between single separators out of `separators`; none if anything else stands there, or more than fit.
struct Numbers {
  std::array<int, 4> at{};
  std::size_t count = 0;

  std::size_t size() const { return count; }
  int& operator[](std::size_t i) { return at[i]; }
  int operator[](std::size_t i) const { return at[i]; }
};

Numbers numbersIn(std::string_view text, std::string_view separators) {
  Numbers numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (numbers.count < numbers.at.size()) {
    int& number = numbers.at[numbers.count++];
    const auto [next, error] = std::from_chars(at, end, number);
    if (error != std::errc() || number < 0) return {};
    if (next == end) return numbers;
    if (separators.find(*next) == separators.npos) return {};
    at = next + 1;
  }
  return {};
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
    case DateForm::German: return joined('.', {{f.day, 2}, {f.month, 2}, {f.year, 4}});
    case DateForm::Finnish: return joined('.', {{f.day}, {f.month}, {f.year, 4}});
    case DateForm::Swedish: return joined('-', {{f.year, 4}, {f.month, 2}, {f.day, 2}});
    case DateForm::English: break;
  }
  return joined('/', {{f.month}, {f.day}, {f.year, 4}});
}

std::string Locale::time(LocalTime time) const {
  const Fields f = fieldsOf(time);
  switch (dateForm) {
    case DateForm::German:
    case DateForm::Swedish: return joined(':', {{f.hour, 2}, {f.minute, 2}, {f.second, 2}});
    case DateForm::Finnish: return joined('.', {{f.hour}, {f.minute, 2}, {f.second, 2}});
    case DateForm::English: break;
  }
  return joined(':', {{f.hour % 12 == 0 ? 12 : f.hour % 12}, {f.minute, 2}, {f.second, 2}}) + (f.hour < 12 ? " AM" : " PM");
}

std::string Locale::shortTime(LocalTime at) const {
  // The seconds are the last two digits, with the separator before them; behind them may stand which half of the day it is.
  std::string text = time(at);
  return text.erase(text.find_last_of(":."), 3);
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
  if (date.size() != 3 || clock.size() != 3 || !compose(date[0], date[1], date[2], day) || !compose(clock[0], clock[1], clock[2], inDay))
    return false;
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
  if (parts.size() == 2) parts.count = 3;
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
  return standardDate(time) + " " + standardTime(time) + "." + joined('.', {{fieldsOf(time).millisecond, 3}});
}

std::string standardDate(LocalTime time) {
  const Fields f = fieldsOf(time);
  return joined('-', {{f.year, 4}, {f.month, 2}, {f.day, 2}});
}

std::string standardTime(LocalTime time) {
  const Fields f = fieldsOf(time);
  return joined(':', {{f.hour, 2}, {f.minute, 2}, {f.second, 2}});
}

}  // namespace ostrand
