#include "recipe/HistoryTime.h"

#include "core/modTools.h"
#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

bool readMoment(const std::string& text, const Locale& locale, LocalTime& time) {
  LocalTime clock;
  const std::size_t blank = text.find(' ');
  if (!readDate(text.substr(0, blank), locale, time)) return false;
  if (blank == text.npos) return true;
  if (!readTime(text.substr(blank), locale, clock)) return false;
  time += clock.time_since_epoch();
  return true;
}

}  // namespace

std::string shownHistoryTime(const std::string& text, const Locale& locale) {
  LocalTime time;
  const std::string moment(trimmed(text));
  // As the user or a document writes it; else with the day first, as the stamps of documents do.
  const bool isMoment = readMoment(moment, locale, time) || readStandardDateAndTime(modTools::StandardizeDatafileDate(moment), time);
  return isMoment ? locale.date(time) + " " + locale.shortTime(time) : text;
}

}  // namespace ostrand
