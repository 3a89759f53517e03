#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "recipe/CurvePoints.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using test::errorOf;

constexpr float kOther = 77.0f;  // what stood in the blocks before

const Coefficients kCubic{0.5f, 9.0f, -4.0f, 1.25f};

struct Blocks {
  std::vector<float> torque = std::vector<float>(251, kOther), consistency = std::vector<float>(251, kOther);
  float x(int series, int point) const { return torque[series * 50 + point]; }
  float y(int series, int point) const { return consistency[series * 50 + point]; }
};

Blocks drawn(int series, const BaseCurve& curve, Correction correction = {}, const ShownTorque& shown = {}) {
  Blocks blocks;
  drawCurve(blocks.torque, blocks.consistency, series, curve, kCubic, correction, shown);
  return blocks;
}

double cubicAt(double x) { return kCubic[3] * x * x * x + kCubic[2] * x * x + kCubic[1] * x + kCubic[0]; }

void expectNear(double got, double wanted) { EXPECT_NEAR(got, wanted, std::abs(wanted) * 1e-6 + 1e-12); }

const BaseCurve kPlain{.minTorque = 0.1f, .maxTorque = 1.2f};
const BaseCurve kWithLines{.minTorque = 0.1f, .maxTorque = 1.2f, .minA = 12.0f, .minB = -0.3f, .maxA = 3.0f, .maxB = 4.0f};

TEST(CurvePointsTest, WithoutEndLinesAllFiftyPointsLieOnTheCubic) {
  const Blocks blocks = drawn(1, kPlain);
  for (int point = 0; point < 50; ++point) {
    expectNear(blocks.x(1, point), 0.1 + point * (1.2 - 0.1) / 49);
    expectNear(blocks.y(1, point), cubicAt(blocks.x(1, point)));
  }
}

TEST(CurvePointsTest, EndLinesTakeTwoPointsOnEachSide) {
  const Blocks blocks = drawn(1, kWithLines);
  EXPECT_EQ(blocks.x(1, 0), 0.0f);
  EXPECT_EQ(blocks.y(1, 0), -0.3f);
  EXPECT_EQ(blocks.x(1, 1), 0.1f);
  expectNear(blocks.y(1, 1), 12.0 * 0.1 - 0.3);
  for (int point = 2; point < 48; ++point) {
    expectNear(blocks.x(1, point), 0.1 + (point - 1) * (1.2 - 0.1) / 47);
    expectNear(blocks.y(1, point), cubicAt(blocks.x(1, point)));
  }
  EXPECT_EQ(blocks.x(1, 48), 1.2f);
  expectNear(blocks.y(1, 48), 3.0 * 1.2 + 4.0);
  EXPECT_EQ(blocks.x(1, 49), 1.5f);
  expectNear(blocks.y(1, 49), 3.0 * 1.5 + 4.0);
}

TEST(CurvePointsTest, TheEndsOfTheRangeAreThoseOfTheLines) {
  const Blocks blocks = drawn(1, kWithLines);
  EXPECT_GT(std::abs(blocks.y(1, 1) - cubicAt(0.1)), 0.4) << "the jump of these relations is drawn";
}

TEST(CurvePointsTest, SlopeAndOffsetScaleAndMoveEveryPoint) {
  const Blocks base = drawn(4, kWithLines), moved = drawn(4, kWithLines, {1.5f, -0.75f});
  for (int point = 0; point < 50; ++point) {
    EXPECT_EQ(moved.x(4, point), base.x(4, point));
    expectNear(moved.y(4, point), base.y(4, point) * 1.5 - 0.75);
  }
}

TEST(CurvePointsTest, TheOtherSeriesKeepTheirPoints) {
  const Blocks blocks = drawn(2, kWithLines);
  for (int element = 0; element < 251; ++element) {
    const bool own = element >= 100 && element < 150;
    EXPECT_EQ(blocks.torque[element] != kOther, own) << element;
    EXPECT_EQ(blocks.consistency[element] != kOther, own) << element;
  }
}

TEST(CurvePointsTest, AForeignUnitMovesTheTorqueAndNothingElse) {
  const Blocks base = drawn(1, kWithLines);
  const Blocks shown = drawn(1, kWithLines, {}, [](float torque) { return torque * 0.5f; });
  for (int point = 0; point < 50; ++point) {
    EXPECT_EQ(shown.x(1, point), base.x(1, point) * 0.5f);
    EXPECT_EQ(shown.y(1, point), base.y(1, point)) << "the cubic is evaluated in Nm";
  }
}

TEST(CurvePointsTest, TheTorquesAreConvertedInTheirOrderAndAFailureBlanksItsPointAlone) {
  std::vector<float> asked;
  const Blocks blocks = drawn(1, kWithLines, {}, [&](float torque) -> std::optional<float> {
    asked.push_back(torque);
    if (asked.size() == 3) return std::nullopt;
    return torque;
  });
  const Blocks base = drawn(1, kWithLines);
  ASSERT_EQ(asked.size(), 50u);
  for (int point = 0; point < 50; ++point) {
    EXPECT_EQ(asked[point], base.x(1, point));
    EXPECT_EQ(blocks.x(1, point), point == 2 ? BaseCurve::kUnset : base.x(1, point));
    EXPECT_EQ(blocks.y(1, point), base.y(1, point));
  }
}

TEST(CurvePointsTest, WhatIsTooLargeForASingleIsAnOverflow) {
  const auto error = [](const BaseCurve& curve, Correction correction, const Coefficients& cubic) {
    Blocks blocks;
    return errorOf([&] { drawCurve(blocks.torque, blocks.consistency, 1, curve, cubic, correction); });
  };
  constexpr float kLargest = std::numeric_limits<float>::max();
  EXPECT_EQ(error(kPlain, {}, {kLargest, kLargest, kLargest, kLargest}), RuntimeError::Overflow);
  EXPECT_EQ(error(kPlain, {kLargest, 0.0f}, kCubic), RuntimeError::Overflow);
  EXPECT_EQ(error({.minTorque = -kLargest, .maxTorque = kLargest}, {}, kCubic), RuntimeError::Overflow);
  EXPECT_EQ(error(kPlain, {}, {kLargest, 0.0f, 0.0f, 0.0f}), 0);
}

TEST(CurvePointsTest, ThePointsBeforeAnOverflowAreWritten) {
  Blocks blocks;
  EXPECT_EQ(errorOf([&] {
              drawCurve(blocks.torque, blocks.consistency, 1, {.minTorque = 0, .maxTorque = 1}, {0, 0, 0, 3e38f}, {2, 0});
            }),
            RuntimeError::Overflow);
  EXPECT_EQ(blocks.x(1, 0), 0.0f);
  EXPECT_EQ(blocks.y(1, 0), 0.0f);
  EXPECT_EQ(blocks.y(1, 49), kOther);
}

TEST(CurvePointsTest, AClearedSeriesHasNoTorque) {
  Blocks blocks;
  clearCurve(blocks.torque, 4);
  for (int element = 0; element < 251; ++element)
    EXPECT_EQ(blocks.torque[element], element >= 200 && element < 250 ? BaseCurve::kUnset : kOther) << element;
}

}  // namespace
}  // namespace ostrand
