#include "anyedit/NumberMask.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

TEST(NumberMaskTest, HasAZeroForEachDecimal) {
  EXPECT_EQ(numberMask(-1), "######0");
  EXPECT_EQ(numberMask(0), "######0");
  EXPECT_EQ(numberMask(1), "######0.0");
  EXPECT_EQ(numberMask(3), "######0.000");
}

TEST(NumberMaskTest, GivesTheDecimalsOfTheMask) {
  EXPECT_EQ(masked("1", "######0.000", '.'), "1.000");
  EXPECT_EQ(masked(" +1,25 ", "######0.0", ','), "1,3");
  EXPECT_EQ(masked("12345678.9", "######0", '.'), "12345679") << "more digits than marks are no error";
  EXPECT_EQ(masked("1E+07", "######0.00", '.'), "10000000.00");
}

TEST(NumberMaskTest, RoundsHalfAwayFromZeroOnTheDecimalText) {
  EXPECT_EQ(masked("0.125", "######0.00", '.'), "0.13");
  EXPECT_EQ(masked("-0.125", "######0.00", '.'), "-0.13");
  EXPECT_EQ(masked("1.005", "######0.00", '.'), "1.01") << "below a half in binary";
  EXPECT_EQ(masked("2.5", "######0", '.'), "3");
}

TEST(NumberMaskTest, WhatIsNoNumberStays) {
  for (const char* text : {"", "NaN", "-Inf", "1,5", "x", "1 000"}) EXPECT_EQ(masked(text, "######0.000", '.'), text);
}

}  // namespace
}  // namespace ostrand
