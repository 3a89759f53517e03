#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "platform/xml/Vocabulary.h"
#include "recipe/CurvePoints.h"

namespace ostrand {
namespace {

// The curves that a mill has: each can be read and drawn, and is one that pulp could have.

const std::string kFolder = OSTRAND_SOURCE_DIR "/data/";

struct MillCurve {
  std::string where;
  std::string sensor;
  std::string pulp;
  std::string revision;
  BaseCurve curve;
};

const Document& tree() {
  static const Document document = Document::readFile(kFolder + "trees/hartGYRE.xml");
  return document;
}

std::vector<MillCurve> curves() {
  std::vector<MillCurve> all;
  for (const Node& node : tree().selectAll("/dtm/relations/parameterA/parameterB")) {
    MillCurve each;
    each.sensor = node.parent().attribute("value");
    each.pulp = node.attribute("value");
    each.revision = node.parent().findAttribute("revision").value_or("");
    each.where = each.sensor + " " + each.revision + " " + each.pulp;
    readCubic(node, Locale::english(), each.curve);
    readEndLines(node, Locale::english(), each.curve);
    all.push_back(std::move(each));
  }
  return all;
}

bool isUniform(const MillCurve& each) { return each.pulp.find("ULIN") != each.pulp.npos; }

TEST(RelationsTest, EveryCurveRisesFromWaterToItsTop) {
  ASSERT_GT(curves().size(), 20u);
  for (const MillCurve& each : curves()) {
    const BaseCurve& curve = each.curve;
    EXPECT_GE(curve.minTorque, 0.0f) << each.where;
    EXPECT_LT(curve.minTorque, curve.maxTorque) << each.where;
    EXPECT_LE(curve.maxTorque, 1.5f) << each.where;
    std::vector<float> torque(251), consistency(251);
    drawCurve(torque, consistency, 1, curve, curve.coefficients, {});
    EXPECT_GE(consistency[50], 0.0f) << each.where;
    EXPECT_LT(consistency[50], 1.0f) << each.where << ": water reads next to nothing";
    for (int point = 51; point < 100; ++point) {
      EXPECT_GT(torque[point], torque[point - 1]) << each.where << " " << point;
      EXPECT_GT(consistency[point], consistency[point - 1]) << each.where << " " << point;
    }
    EXPECT_LE(consistency[99], curve.maxConsistency + 0.01f) << each.where;
    EXPECT_GT(consistency[99], curve.maxConsistency * 0.8f) << each.where << ": the axis fits";
    EXPECT_LE(curve.maxConsistency, isUniform(each) ? 100.0f : 18.0f) << each.where;
  }
}

TEST(RelationsTest, EndLinesGoOnWhereTheCubicEnds) {
  for (const MillCurve& each : curves()) {
    if (!each.curve.hasEndLines()) continue;
    const BaseCurve& curve = each.curve;
    const auto cubic = [&](double x) {
      return ((curve.coefficients[3] * x + curve.coefficients[2]) * x + curve.coefficients[1]) * x + curve.coefficients[0];
    };
    EXPECT_NEAR(curve.minA * curve.minTorque + curve.minB, cubic(curve.minTorque), 0.001) << each.where;
    EXPECT_NEAR(curve.maxA * curve.maxTorque + curve.maxB, cubic(curve.maxTorque), 0.001) << each.where;
  }
}

TEST(RelationsTest, TheyHoldEachKindOfCurve) {
  std::set<std::string> sensors, pulps, revisions;
  int withLines = 0, uniform = 0;
  const std::vector<MillCurve> all = curves();
  for (const MillCurve& each : all) {
    sensors.insert(each.sensor);
    pulps.insert(each.pulp);
    revisions.insert(each.revision);
    withLines += each.curve.hasEndLines();
    uniform += isUniform(each);
  }
  EXPECT_GE(sensors.size(), 3u);
  EXPECT_GE(pulps.size(), 8u);
  EXPECT_TRUE(revisions.contains("1") && revisions.contains("A") && revisions.contains("")) << "digits, letters and none";
  EXPECT_GT(withLines, 0);
  EXPECT_LT(withLines, static_cast<int>(all.size()));
  EXPECT_GE(uniform, 1);
}

TEST(RelationsTest, SensorsAndPulpsAreThoseOfTheDataSet) {
  const Document dataSet = Document::readFile(kFolder + "devices/hartGYRE.xml");
  const auto keys = [&](const std::string& name) {
    std::set<std::string> found;
    for (const Node& each : dataSet.selectAll("//data:mappedParam[@name='" + name + "']/data:mappedItem")) found.emplace(each.attribute("key"));
    return found;
  };
  const std::set<std::string> sensors = keys("sensorType"), pulps = keys("pulpType");
  std::set<std::string> covered;
  for (const MillCurve& each : curves()) {
    EXPECT_TRUE(sensors.contains(each.sensor)) << each.where;
    EXPECT_TRUE(pulps.contains(each.pulp)) << each.where;
    covered.insert(each.pulp);
  }
  EXPECT_EQ(covered, pulps) << "each pulp has a curve on some sensor";
}

TEST(RelationsTest, ADeviceFindsTheCurveOfItsSoftware) {
  const auto revision = [](const std::string& sensor, const std::string& pulp, int software) {
    const Node node = chooseBaseCurve(tree(), sensor, pulp, software);
    return node ? std::string(node.parent().findAttribute("revision").value_or("none")) : std::string("no curve");
  };
  EXPECT_EQ(revision("GYRE-S", "pulpTypeBleachedSoftwood", 9), "1");
  EXPECT_EQ(revision("GYRE-S", "pulpTypeBleachedSoftwood", 65), "A");
  EXPECT_EQ(revision("GYRE-S", "pulpTypeTmp", 65), "A");
  EXPECT_EQ(revision("GYRE-S", "pulpTypeTmp", 67), "B");
  EXPECT_EQ(revision("GYRE-S", "pulpTypeTmp", -1), "no curve");
  EXPECT_EQ(revision("GYRE-S", "pulpTypeCtmp", -1), "A") << "there is but one";
  EXPECT_EQ(revision("GYRE-L", "pulpTypeTmp", 1), "none");
}

TEST(RelationsTest, NoTwoNodesOfADeviceAreEqual) {
  std::set<std::string> seen;
  for (const MillCurve& each : curves()) EXPECT_TRUE(seen.insert(each.where).second) << each.where;
}

}  // namespace
}  // namespace ostrand
