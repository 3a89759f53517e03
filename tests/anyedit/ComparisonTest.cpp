#include "anyedit/Comparison.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "anyedit/AnyItem.h"

namespace ostrand {
namespace {

TEST(ComparisonTest, AnAbsentLimitHasItsOwnBits) {
  EXPECT_EQ(std::bit_cast<std::uint64_t>(kNoMaximum), 0x7FEFFFFFFFFFFFE2u);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(kNoMinimum), 0xFFEFFFFFFFFFFFE2u);
}

TEST(ComparisonTest, AnAbsentLimitIsNeverPassed) {
  EXPECT_EQ(dblAComparedToB(-1e300, kNoMinimum, 3), 50.0);
  EXPECT_EQ(dblAComparedToB(1e300, kNoMaximum, 3), -50.0);
  EXPECT_EQ(dblAComparedToB(kNoMaximum, 1, 3), 50.0);
  EXPECT_EQ(dblAComparedToB(kNoMinimum, 1, 3), -50.0);
  EXPECT_EQ(dblAComparedToB(kNoMaximum, kNoMaximum, 3), 50.0) << "the larger side is looked at first";
}

TEST(ComparisonTest, TheDifferenceIsSigned) {
  EXPECT_EQ(dblAComparedToB(3, 1, 3), 2.0);
  EXPECT_EQ(dblAComparedToB(1, 3, 3), -2.0);
}

TEST(ComparisonTest, WithoutDecimalsLessThanNineTenthsAreNothing) {
  EXPECT_EQ(dblAComparedToB(10.89, 10, 0), 0.0);
  EXPECT_GT(dblAComparedToB(10.91, 10, 0), 0.0);
  EXPECT_EQ(dblAComparedToB(9.11, 10, -3), 0.0);
}

TEST(ComparisonTest, WithDecimalsTheToleranceIsBelowTheHundredthPartOfTheLastOne) {
  EXPECT_EQ(dblAComparedToB(10.0000089, 10, 3), 0.0);
  EXPECT_GT(dblAComparedToB(10.0000091, 10, 3), 0.0);
  EXPECT_EQ(dblAComparedToB(10.00089, 10, 1), 0.0);
  EXPECT_LT(dblAComparedToB(9.99909, 10, 1), 0.0);
}

}  // namespace
}  // namespace ostrand
