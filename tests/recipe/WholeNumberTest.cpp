#include "recipe/WholeNumber.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using test::errorOf;

TEST(WholeNumber, RoundsToTheNearestAndFromTheMiddleToTheEven) {
  EXPECT_EQ(wholeNumber<std::int32_t>("3.4"), 3);
  EXPECT_EQ(wholeNumber<std::int32_t>("3.6"), 4);
  EXPECT_EQ(wholeNumber<std::int32_t>("2.5"), 2);
  EXPECT_EQ(wholeNumber<std::int32_t>("3.5"), 4);
  EXPECT_EQ(wholeNumber<std::int32_t>("-2.5"), -2);
  EXPECT_EQ(wholeNumber<std::int32_t>(" 40000 "), 40000);
}

TEST(WholeNumber, WhatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(wholeNumber<std::int16_t>("32767"), 32767);
  EXPECT_EQ(wholeNumber<std::int16_t>("-32768"), -32768);
  for (const char* text : {"32768", "-32769", "1e30"}) EXPECT_EQ(errorOf([&] { wholeNumber<std::int16_t>(text); }), RuntimeError::Overflow) << text;
}

TEST(WholeNumber, WhatIsNoNumberCannotBeConverted) {
  for (const char* text : {"", "A", "1,5", "NaN", "1 2"})
    EXPECT_EQ(errorOf([&] { wholeNumber<std::int16_t>(text); }), RuntimeError::NotConvertible) << text;
}

}  // namespace
}  // namespace ostrand
