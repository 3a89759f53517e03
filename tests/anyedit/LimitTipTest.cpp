#include "anyedit/LimitTip.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

struct LimitTipTest : testing::Test {
  LimitTip tip{'.'};
  std::string told = "as it stood";
};

TEST_F(LimitTipTest, TellsALimitWithItsSignAndUnit) {
  tip.tell(told, 0.5, std::nullopt, "Nm", LimitTip::kInDataUnit);
  EXPECT_EQ(told, " >= 0.5 Nm");
  tip.tell(told, 0.5, std::nullopt, "Nm", LimitTip::kConverted);
  EXPECT_EQ(told, " > 0.5 Nm");
  LimitTip fresh(',');
  fresh.tell(told, std::nullopt, 10.25, "Nm", LimitTip::kInDataUnit);
  EXPECT_EQ(told, " <= 10,25 Nm");
  fresh.tell(told, std::nullopt, 10.25, "Nm", LimitTip::kConverted);
  EXPECT_EQ(told, " < 10,25 Nm");
}

TEST_F(LimitTipTest, TellsBothLimitsAsARange) {
  tip.tell(told, 0, 10, "%", LimitTip::kInDataUnit);
  EXPECT_EQ(told, "0..10 %");
  tip.tell(told, -1, 1, "Nm", LimitTip::kConverted);
  EXPECT_EQ(told, "-1..1 Nm");
}

TEST_F(LimitTipTest, NoUnitPrintsAsNothingBehindItsBlank) {
  tip.tell(told, 0, 10, "noUnit", LimitTip::kInDataUnit);
  EXPECT_EQ(told, "0..10 ");
}

TEST_F(LimitTipTest, WithoutLimitsTheTipStays) {
  tip.tell(told, std::nullopt, std::nullopt, "Nm", LimitTip::kInDataUnit);
  EXPECT_EQ(told, "as it stood");
}

TEST_F(LimitTipTest, AMaximumAloneShowsTheMinimumOfTheOneBefore) {
  tip.tell(told, 3, std::nullopt, "Nm", LimitTip::kInDataUnit);
  tip.tell(told, std::nullopt, 8, "%", LimitTip::kInDataUnit);
  EXPECT_EQ(told, "3..8 %");
}

}  // namespace
}  // namespace ostrand
