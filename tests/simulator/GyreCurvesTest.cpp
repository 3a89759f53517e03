#include "simulator/GyreCurves.h"

#include <gtest/gtest.h>

namespace ostrand::simulator {
namespace {

TEST(GyreCurvesTest, TheNewestCurveThatIsNotNewerThanTheSoftwareCounts) {
  const auto torqueOf = [](int software) {
    const GyreCurve* const curve = gyreCurve("GYRE-S", "pulpTypeTmp", software);
    return curve ? curve->factors[1] : 0;
  };
  EXPECT_EQ(torqueOf(0), 0) << "all are newer";
  EXPECT_EQ(torqueOf(1), 14.9889);
  EXPECT_EQ(torqueOf(64), 14.9889);
  EXPECT_EQ(torqueOf('A'), 15.0334);
  EXPECT_EQ(torqueOf(66), 15.1929);
  EXPECT_EQ(torqueOf(200), 15.1929);
}

TEST(GyreCurvesTest, AnOnlyCurveCountsHoweverNewItIs) {
  EXPECT_TRUE(gyreCurve("GYRE-M", "pulpTypeOcc", 0));
  EXPECT_TRUE(gyreCurve("GYRE-L", "pulpTypeTmp", 0)) << "without a revision";
  EXPECT_FALSE(gyreCurve("GYRE-L", "pulpTypeBroke", 99));
  EXPECT_FALSE(gyreCurve("GYRE-X", "pulpTypeTmp", 99));
}

TEST(GyreCurvesTest, LinesGoOnWhereTheCubicEnds) {
  const GyreCurve curve{{1, 10, 0, 0}, 0.1, 1.2, {{20, 0, 5, 7}}};
  EXPECT_DOUBLE_EQ(curve.consistency(0.05), 1);
  EXPECT_DOUBLE_EQ(curve.consistency(0.1), 2);
  EXPECT_DOUBLE_EQ(curve.consistency(1.2), 13);
  EXPECT_DOUBLE_EQ(curve.consistency(1.4), 14);
  EXPECT_DOUBLE_EQ(curve.consistency(-1), 0);
  GyreCurve alone = curve;
  alone.lines.reset();
  EXPECT_DOUBLE_EQ(alone.consistency(1.4), 15);
}

TEST(GyreCurvesTest, EveryCurveRisesAndIsItsOwnInverse) {
  for (const GyreCurveRow& row : gyreCurves()) {
    double before = -1;
    for (int step = 0; step <= 150; ++step) {
      const double torque = step / 100.0;
      const double consistency = row.curve.consistency(torque);
      // The lines meet the cubic to within the digits that the maker gives.
      EXPECT_GT(consistency, before - 1e-3) << row.sensorType << row.revision << " " << row.pulpType << " " << torque;
      if (step > 0) {
        EXPECT_NEAR(row.curve.torque(consistency), torque, 1e-4) << row.sensorType << row.revision << " " << row.pulpType;
      }
      before = consistency;
    }
  }
}

TEST(GyreCurvesTest, WhatBehindThePointCountsAsTheRevision) {
  EXPECT_EQ(minorRevision("1.65"), 65);
  EXPECT_EQ(minorRevision("67"), 67);
  EXPECT_EQ(minorRevision("1.A"), 'A');
  EXPECT_EQ(minorRevision("1.2.3"), 2);
  for (const char* nothing : {"", "1.", "1.-4", "1.?", "1.1e9"}) EXPECT_EQ(minorRevision(nothing), 0) << nothing;
}

}  // namespace
}  // namespace ostrand::simulator
