#include "platform/base/Locale.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

using namespace std::chrono;

LocalTime at(int y, int mo, int d, int h = 0, int mi = 0, int s = 0, int ms = 0) {
  return local_days(year(y) / mo / d) + hours(h) + minutes(mi) + seconds(s) + milliseconds(ms);
}

const LocalTime kUntouched = at(1999, 9, 9, 9, 9, 9);

const Locale& locale(const char* name) { return *Locale::find(name); }

TEST(Locale, KnowsFourLanguagesByName) {
  for (const char* name : {"en", "fi", "sv", "de"}) {
    ASSERT_NE(Locale::find(name), nullptr);
    EXPECT_EQ(Locale::find(name)->name, name);
  }
  EXPECT_EQ(Locale::english().name, "en");
  for (const char* name : {"", "EN", "english", "fr", "e"}) EXPECT_EQ(Locale::find(name), nullptr) << name;
}

TEST(Locale, OnlyEnglishHasAPoint) {
  EXPECT_EQ(locale("en").decimalSeparator, '.');
  for (const char* name : {"fi", "sv", "de"}) EXPECT_EQ(locale(name).decimalSeparator, ',') << name;
}

TEST(Locale, WritesShortDateAndLongTime) {
  const LocalTime newYear = at(2020, 12, 31, 23, 59, 59);
  EXPECT_EQ(locale("en").dateAndTime(newYear), "12/31/2020 11:59:59 PM");
  EXPECT_EQ(locale("de").dateAndTime(newYear), "31.12.2020 23:59:59");
  EXPECT_EQ(locale("fi").dateAndTime(newYear), "31.12.2020 23.59.59");
  EXPECT_EQ(locale("sv").dateAndTime(newYear), "2020-12-31 23:59:59");
}

TEST(Locale, FillsWithZerosWhereTheLanguageDoes) {
  const LocalTime early = at(2021, 1, 2, 3, 4, 5, 678);
  EXPECT_EQ(locale("en").dateAndTime(early), "1/2/2021 3:04:05 AM");
  EXPECT_EQ(locale("de").dateAndTime(early), "02.01.2021 03:04:05");
  EXPECT_EQ(locale("fi").dateAndTime(early), "2.1.2021 3.04.05");
  EXPECT_EQ(locale("sv").dateAndTime(early), "2021-01-02 03:04:05");
}

TEST(Locale, EnglishNoonAndMidnight) {
  EXPECT_EQ(locale("en").time(at(2021, 1, 2, 0, 0, 0)), "12:00:00 AM");
  EXPECT_EQ(locale("en").time(at(2021, 1, 2, 12, 0, 0)), "12:00:00 PM");
  EXPECT_EQ(locale("en").time(at(2021, 1, 2, 13, 0, 0)), "1:00:00 PM");
}

TEST(Locale, WritesTimesBeforeTheEpoch) { EXPECT_EQ(locale("sv").dateAndTime(at(1969, 12, 31, 23, 59, 59, 999)), "1969-12-31 23:59:59"); }

TEST(StandardForms, HaveFixedWidths) {
  const LocalTime time = at(2026, 1, 5, 8, 0, 1, 7);
  EXPECT_EQ(standardDateAndTime(time), "2026-01-05 08:00:01.007");
  EXPECT_EQ(standardDate(time), "2026-01-05");
  EXPECT_EQ(standardTime(time), "08:00:01");
}

TEST(ReadStandardDateAndTime, ReadsTheStandardForm) {
  for (const char* text : {"2020-12-31 23:59:59", "  2020-12-31  23:59:59 ", "2020-12-31 23.59.59"}) {
    LocalTime time{};
    EXPECT_TRUE(readStandardDateAndTime(text, time)) << text;
    EXPECT_EQ(time, at(2020, 12, 31, 23, 59, 59)) << text;
  }
}

TEST(ReadStandardDateAndTime, RefusesWhatIsNoDateAndTimeAndLeavesTheResultAlone) {
  for (const char* text : {"",
                           " ",
                           "2020-12-31",
                           "23:59:59",
                           "2020-12-31 ",
                           "2020-12-31 23:59",
                           "2020-12-31 24:00:00",
                           "2020-12-31 23:60:00",
                           "2020-12-31 23:59:60",
                           "2021-02-29 00:00:00",
                           "2020-13-01 00:00:00",
                           "2020-00-01 00:00:00",
                           "2020-12-00 00:00:00",
                           "2020-12-32 00:00:00",
                           "2020-257-31 00:00:00",
                           "2020-12-287 00:00:00",
                           "20-12-31 00:00:00",
                           "99999-12-31 00:00:00",
                           "--- 23:59:59",
                           "-- ",
                           "2020-12-31 -1:00:00",
                           "2020--12-31 00:00:00",
                           "2020-12-31- 00:00:00",
                           "2020-12-31 23:59:59x",
                           "2020-12-31 23:59:59 PM",
                           "99999999999-12-31 00:00:00",
                           "x-12-31 00:00:00"}) {
    LocalTime time = kUntouched;
    EXPECT_FALSE(readStandardDateAndTime(text, time)) << '"' << text << '"';
    EXPECT_EQ(time, kUntouched) << '"' << text << '"';
  }
}

TEST(ReadDate, ReadsBothTheStandardAndTheLocalForm) {
  const LocalTime day = at(2020, 12, 31);
  for (const char* name : {"en", "fi", "sv", "de"})
    for (const std::string& text : {std::string("2020-12-31"), locale(name).date(day), " " + locale(name).date(day) + " "}) {
      LocalTime time{};
      EXPECT_TRUE(readDate(text, locale(name), time)) << name << ' ' << text;
      EXPECT_EQ(time, day) << name << ' ' << text;
    }
}

TEST(ReadDate, EnglishPutsTheMonthFirst) {
  LocalTime time{};
  ASSERT_TRUE(readDate("2/1/2020", locale("en"), time));
  EXPECT_EQ(time, at(2020, 2, 1));
  ASSERT_TRUE(readDate("2.1.2020", locale("de"), time));
  EXPECT_EQ(time, at(2020, 1, 2));
}

TEST(ReadDate, RefusesOtherTexts) {
  for (const char* text :
       {"", "31.12", "31.12.2020.1", "31.12.20", "29.2.2021", "0.1.2020", "1.0.2020", "1.257.2020", "a.b.c", "2020-13-01", "1 1 2020"}) {
    LocalTime time = kUntouched;
    EXPECT_FALSE(readDate(text, locale("de"), time)) << text;
    EXPECT_EQ(time, kUntouched);
  }
}

TEST(ReadTime, ReadsWhatEachLocaleWrites) {
  for (const char* name : {"en", "fi", "sv", "de"})
    for (const int hour : {0, 1, 11, 12, 13, 23}) {
      const LocalTime moment = at(1970, 1, 1, hour, 5, 9);
      LocalTime time{};
      EXPECT_TRUE(readTime(locale(name).time(moment), locale(name), time)) << name << hour;
      EXPECT_EQ(time, moment) << name << ' ' << hour;
    }
}

TEST(ReadTime, SecondsMayBeLeftOut) {
  LocalTime time{};
  ASSERT_TRUE(readTime("23:59", locale("sv"), time));
  EXPECT_EQ(time, at(1970, 1, 1, 23, 59));
  ASSERT_TRUE(readTime("11:59 pm", locale("en"), time));
  EXPECT_EQ(time, at(1970, 1, 1, 23, 59));
}

TEST(ReadTime, RefusesOtherTexts) {
  for (const char* text : {"", "23", "24:00:00", "1:60:00", "1:00:60", "0:30 AM", "13:00 PM", "1:2:3:4", "PM", " PM", "-1:00", "a:b"}) {
    LocalTime time = kUntouched;
    EXPECT_FALSE(readTime(text, locale("en"), time)) << text;
    EXPECT_EQ(time, kUntouched);
  }
}

}  // namespace
}  // namespace ostrand
