#include <gtest/gtest.h>

#include "recipe/LabCalibration.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using test::errorOf;

TEST(LabCalibrationTest, TheFillerIsTakenOut) {
  EXPECT_DOUBLE_EQ(fillerCorrected(4.0, 10.0), 3.6);
  EXPECT_EQ(fillerCorrected(4.0, 0.0), 4.0);
  EXPECT_EQ(fillerCorrected(4.0, 0.001), 4.0) << "the last that counts as none";
  EXPECT_LT(fillerCorrected(4.0, 0.0011), 4.0);
  EXPECT_EQ(fillerCorrected(4.0, 100.0), 0.0);
  EXPECT_EQ(fillerCorrected(4.0, -5.0), 4.0);
  EXPECT_EQ(errorOf([] { fillerCorrected(1e307, 1.0); }), RuntimeError::Overflow);
}

TEST(LabCalibrationTest, OnePointMovesTheCurveAndKeepsItsSlope) {
  const LabPoint point{4.2, 3.0};
  const CalibrationLine line = calibrateOnePoint(point, 1.5);
  EXPECT_EQ(line.slope, 1.5);
  EXPECT_DOUBLE_EQ(line.offset, 4.2 - 1.5 * 3.0);
  EXPECT_NEAR(residual(point, line), 0.0, 1e-12);
  EXPECT_EQ(errorOf([] { calibrateOnePoint({0.0, 1e200}, 1e200); }), RuntimeError::Overflow);
}

TEST(LabCalibrationTest, TwoPointsGiveTheLineThroughBoth) {
  const LabPoint low{2.5, 2.0}, high{6.0, 7.0};
  for (const auto& [first, second] : {std::pair(low, high), std::pair(high, low)}) {
    const TwoPointCalibration result = calibrateTwoPoints(first, second);
    ASSERT_TRUE(result.line);
    EXPECT_FALSE(result.tooClose);
    EXPECT_DOUBLE_EQ(result.line->slope, 0.7);
    EXPECT_EQ(result.line->offset, 2.5 - result.line->slope * 2.0) << "the lower laboratory value is the anchor, to the last digit";
    EXPECT_NEAR(residual(low, *result.line), 0.0, 1e-12);
    EXPECT_NEAR(residual(high, *result.line), 0.0, 1e-12);
  }
}

TEST(LabCalibrationTest, OfEqualLaboratoryValuesTheSecondIsTheAnchor) {
  const TwoPointCalibration result = calibrateTwoPoints({3.0, 1.0}, {3.0, 9.0});
  ASSERT_TRUE(result.line);
  EXPECT_EQ(result.line->slope, 0.0);
  EXPECT_EQ(result.line->offset, 3.0);
}

TEST(LabCalibrationTest, EqualReadingsGiveNoLineAndTheMessage) {
  const TwoPointCalibration result = calibrateTwoPoints({3.0, 2.0}, {5.0, 2.0});
  EXPECT_TRUE(result.tooClose);
  EXPECT_FALSE(result.line);
}

TEST(LabCalibrationTest, CloseReadingsWarnAndStillGiveTheLine) {
  const TwoPointCalibration close = calibrateTwoPoints({3.0, 2.0}, {3.4, 2.2});
  EXPECT_TRUE(close.tooClose);
  ASSERT_TRUE(close.line);
  EXPECT_NEAR(close.line->slope, 2.0, 1e-12);
  EXPECT_FALSE(calibrateTwoPoints({3.0, 3.0}, {4.0, 4.0}).tooClose) << "four times the distance is not too close";
  EXPECT_TRUE(calibrateTwoPoints({3.0, 3.25}, {4.0, 4.25}).tooClose) << "the second reading counts as well";
  EXPECT_TRUE(calibrateTwoPoints({3.0, 3.25}, {4.0, 4.0}).tooClose);
}

TEST(LabCalibrationTest, TheLargerReadingFirstNeverWarns) {
  const TwoPointCalibration result = calibrateTwoPoints({3.4, 2.2}, {3.0, 2.0});
  EXPECT_FALSE(result.tooClose);
  ASSERT_TRUE(result.line);
  EXPECT_NEAR(result.line->slope, 2.0, 1e-12);
}

TEST(LabCalibrationTest, WhatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(errorOf([] { calibrateTwoPoints({0.0, -1e308}, {1.0, 1e308}); }), RuntimeError::Overflow);
  EXPECT_EQ(errorOf([] { calibrateTwoPoints({0.0, 0.0}, {1e308, 1e-10}); }), RuntimeError::Overflow);
  EXPECT_EQ(errorOf([] { calibrateTwoPoints({0.0, 1e-300}, {1e300, 1.0}); }), 0);
}

TEST(LabCalibrationTest, TheResidualIsTheLaboratoryLessTheCurve) {
  EXPECT_DOUBLE_EQ(residual({4.0, 3.0}, {1.0, 0.0}), 1.0);
  EXPECT_DOUBLE_EQ(residual({4.0, 3.0}, {2.0, 0.5}), -2.5);
}

}  // namespace
}  // namespace ostrand
