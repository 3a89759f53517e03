#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace ostrand {

using LocalTime = std::chrono::local_time<std::chrono::milliseconds>;

// How the user writes numbers and dates. Documents do not care: they have a point in every locale.
struct Locale {
  enum class DateForm { English, German, Finnish, Swedish };

  std::string name;
  char decimalSeparator;
  DateForm dateForm;

  // "en", "fi", "sv" or "de"; any other name gives nullptr.
  static const Locale* find(std::string_view name);
  static const Locale& english();

  // Short date; long time; both with a blank between; the time without its seconds.
  std::string date(LocalTime time) const;
  std::string time(LocalTime time) const;
  std::string dateAndTime(LocalTime time) const;
  std::string shortTime(LocalTime time) const;
};

// These three return false, and leave `time` as it was, if the text is no such thing.
// "2020-12-31 23:59:59" (points in the time will do as well).
bool readStandardDateAndTime(std::string_view text, LocalTime& time);
// A date alone, as "2020-12-31" or as the locale writes it; the time of day is 0.
bool readDate(std::string_view text, const Locale& locale, LocalTime& time);
// A time of day alone, as "23:59:59" or "23:59", or as the locale writes it; the date is 1970-01-01.
bool readTime(std::string_view text, const Locale& locale, LocalTime& time);
// "2026-01-05 08:00:01.000", "2026-01-05", "08:00:01".
std::string standardDateAndTime(LocalTime time);
std::string standardDate(LocalTime time);
std::string standardTime(LocalTime time);

}  // namespace ostrand
