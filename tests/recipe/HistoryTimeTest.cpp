#include "recipe/HistoryTime.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

std::string shown(const std::string& text, const char* locale) { return shownHistoryTime(text, *Locale::find(locale)); }

TEST(ShownHistoryTime, IsTheShortDateAndTheShortTimeOfTheUser) {
  EXPECT_EQ(shown("2025-12-31 23:59:58", "en"), "12/31/2025 11:59 PM");
  EXPECT_EQ(shown("2025-12-31 23:59:58", "fi"), "31.12.2025 23.59");
  EXPECT_EQ(shown("2025-12-31 23:59:58", "sv"), "2025-12-31 23:59");
  EXPECT_EQ(shown("2025-12-31 23:59:58", "de"), "31.12.2025 23:59");
  EXPECT_EQ(shown("2026-01-05 00:05:00", "en"), "1/5/2026 12:05 AM");
}

TEST(ShownHistoryTime, ReadsWhatADeviceMayTell) {
  EXPECT_EQ(shown("2025-12-31 23:59", "sv"), "2025-12-31 23:59") << "without seconds";
  EXPECT_EQ(shown(" 2025-12-31 07.05.09 ", "sv"), "2025-12-31 07:05");
  EXPECT_EQ(shown("2025-12-31", "sv"), "2025-12-31 00:00") << "a date alone";
  EXPECT_EQ(shown("31/12/2025 23:59:58", "en"), "12/31/2025 11:59 PM") << "the day first, as in a stamp";
  EXPECT_EQ(shown("12/31/2025 11:59:58 PM", "en"), "12/31/2025 11:59 PM") << "as the user writes it";
}

TEST(ShownHistoryTime, LeavesAnythingElseAsItIs) {
  for (const char* text : {"", " ", "no date", "2025-02-30 10:00:00", "2025-12-31 25:00:00", "NaN", "4.5", "23:59:58"})
    EXPECT_EQ(shown(text, "en"), text);
}

}  // namespace
}  // namespace ostrand
