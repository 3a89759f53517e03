#include <gtest/gtest.h>

#include "recipe/BaseCurve.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using test::errorOf;

// A sensor with one pulp whose name tells its place in the document.
std::string sensor(const std::string& attributes, const std::string& mark, const std::string& pulp = "pine") {
  return "<parameterA value=\"GS\"" + attributes + "><parameterB value=\"" + pulp + "\" mark=\"" + mark + "\"/></parameterA>";
}

Document relations(const std::string& sensors) { return Document::read("<dtm><relations>" + sensors + "</relations></dtm>"); }

std::string chosen(const Document& tree, int revision, const std::string& type = "GS", const std::string& pulp = "pine") {
  const Node node = chooseBaseCurve(tree, type, pulp, revision);
  return node ? std::string(node.attribute("mark")) : "none";
}

TEST(BaseCurveTest, ASingleMatchIsTakenWhateverItsRevision) {
  const Document tree = relations(sensor(" revision=\"9\"", "nine"));
  for (const int revision : {-1, 0, 8, 65}) EXPECT_EQ(chosen(tree, revision), "nine") << revision;
  EXPECT_EQ(chosen(relations(sensor(" revision=\"\"", "empty")), 1), "empty") << "its revision is not looked at";
}

TEST(BaseCurveTest, AmongSeveralTheNewestThatIsNotNewerThanTheDeviceWins) {
  const Document tree = relations(sensor(" revision=\"3\"", "three") + sensor(" revision=\"1\"", "one") + sensor(" revision=\"A\"", "A"));
  EXPECT_EQ(chosen(tree, 2), "one");
  EXPECT_EQ(chosen(tree, 3), "three");
  EXPECT_EQ(chosen(tree, 64), "three");
  EXPECT_EQ(chosen(tree, 65), "A");
  EXPECT_EQ(chosen(tree, 66), "A");
  EXPECT_EQ(chosen(tree, 0), "none") << "all are newer";
  EXPECT_EQ(chosen(tree, -1), "none") << "nobody knows the device's revision";
}

TEST(BaseCurveTest, OfEqualsTheFirstWinsAndAnAbsentRevisionIsZero) {
  EXPECT_EQ(chosen(relations(sensor("", "first") + sensor(" revision=\"0\"", "second")), 5), "first");
  EXPECT_EQ(chosen(relations(sensor(" revision=\"2\"", "first") + sensor(" revision=\"2\"", "second")), 2), "first");
}

TEST(BaseCurveTest, OnlyTheFirstCharacterOfARevisionCounts) {
  const Document tree = relations(sensor(" revision=\"19\"", "nineteen") + sensor(" revision=\"2\"", "two"));
  EXPECT_EQ(chosen(tree, 1), "nineteen");
  EXPECT_EQ(chosen(tree, 19), "two");
  EXPECT_EQ(chosen(relations(sensor(" revision=\"a\"", "small") + sensor(" revision=\"B\"", "capital")), 97), "small");
  EXPECT_EQ(chosen(relations(sensor(" revision=\"-\"", "below zero") + sensor(" revision=\"1\"", "one")), 0), "below zero");
}

TEST(BaseCurveTest, ADeviceAThousandRevisionsAheadGetsNone) {
  const Document tree = relations(sensor(" revision=\"1\"", "one") + sensor(" revision=\"0\"", "zero"));
  EXPECT_EQ(chosen(tree, 1000), "one");
  EXPECT_EQ(chosen(tree, 1001), "none");
}

TEST(BaseCurveTest, WhatNobodyKnowsHasNoCurve) {
  const Document tree = relations(sensor("", "one"));
  EXPECT_EQ(chosen(tree, 1, "GX"), "none");
  EXPECT_EQ(chosen(tree, 1, "GS", "birch"), "none");
  EXPECT_EQ(chosen(tree, 1, "", ""), "none");
  EXPECT_EQ(chosen(Document::read("<dtm/>"), 1), "none");
  EXPECT_EQ(chosen(Document::read("<other><relations/></other>"), 1), "none");
}

TEST(BaseCurveTest, AQuoteAndAnEmptyRevisionAndNoDocumentAreErrors) {
  const Document two = relations(sensor(" revision=\"\"", "empty") + sensor("", "none"));
  EXPECT_EQ(errorOf([&] { chooseBaseCurve(two, "GS", "pine", 1); }), RuntimeError::BadArgument);
  EXPECT_EQ(chosen(two, -1), "none") << "without a revision of the device none is read";
  EXPECT_EQ(errorOf([&] { chooseBaseCurve(two, "G\"S", "pine", 1); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { chooseBaseCurve({}, "GS", "pine", 1); }), RuntimeError::NothingThere);
}

TEST(BaseCurveTest, TheMessageSaysWhatIsMissing) {
  EXPECT_STREQ(messageWithoutCurve("", "pine", 5), "|c#sensorType#undefined");
  EXPECT_STREQ(messageWithoutCurve("", "pine", -1), "|c#sensorType#undefined");
  EXPECT_STREQ(messageWithoutCurve("GS", "pine", -1), "|c#swRevision#undefined");
  EXPECT_STREQ(messageWithoutCurve("GS", "birch", 5), "") << "an unknown pulp says nothing";
  EXPECT_STREQ(messageWithoutCurve("", "", -1), "");
  EXPECT_STREQ(messageWithoutCurve("GS", "", -1), "");
}

const std::string kCubic = "x0=\"0.5\" x1=\"8.25\" x2=\"-1.5\" x3=\"0.125\" min=\"0.1\" max=\"1.25\" maxC=\"12\"";
const std::string kLines = " minA=\"10\" minB=\"-0.25\" maxA=\"4\" maxB=\"3\"";

Node curveNode(const std::string& attributes) { return Document::read("<parameterB " + attributes + "/>").root(); }

TEST(BaseCurveTest, ItsNumbersAreReadInEveryLocale) {
  for (const char* language : {"en", "fi", "sv", "de"}) {
    BaseCurve curve;
    const Node node = curveNode(kCubic + kLines);
    readCubic(node, *Locale::find(language), curve);
    EXPECT_EQ(curve.coefficients, (Coefficients{0.5f, 8.25f, -1.5f, 0.125f}));
    EXPECT_EQ(curve.minTorque, 0.1f);
    EXPECT_EQ(curve.maxTorque, 1.25f);
    EXPECT_EQ(curve.maxConsistency, 12.0f);
    EXPECT_FALSE(curve.hasEndLines()) << "they are read in a step of their own";
    readEndLines(node, *Locale::find(language), curve);
    EXPECT_TRUE(curve.hasEndLines());
    EXPECT_EQ(curve.minA, 10.0f);
    EXPECT_EQ(curve.minB, -0.25f);
    EXPECT_EQ(curve.maxA, 4.0f);
    EXPECT_EQ(curve.maxB, 3.0f);
  }
}

TEST(BaseCurveTest, WhatWasReadBeforeAFaultStays) {
  BaseCurve curve;
  EXPECT_EQ(errorOf([&] { readCubic(curveNode("x0=\"1\" x1=\"2\" x3=\"4\""), Locale::english(), curve); }), RuntimeError::NothingThere);
  EXPECT_EQ(curve.coefficients, (Coefficients{1.0f, 2.0f, 0.0f, 0.0f}));
  EXPECT_EQ(errorOf([&] { readCubic(curveNode("x0=\"5\" x1=\"two\""), Locale::english(), curve); }), RuntimeError::NotConvertible);
  EXPECT_EQ(curve.coefficients, (Coefficients{5.0f, 2.0f, 0.0f, 0.0f}));
  EXPECT_EQ(errorOf([&] { readCubic(curveNode("x0=\"1e39\""), Locale::english(), curve); }), RuntimeError::Overflow);
  EXPECT_EQ(curve.coefficients[0], 5.0f);
  EXPECT_EQ(errorOf([&] { readEndLines(curveNode("minA=\"7\" minB=\"NaN\""), Locale::english(), curve); }), RuntimeError::NotConvertible);
  EXPECT_EQ(curve.minA, 7.0f);
  EXPECT_EQ(curve.minB, BaseCurve::kUnset);
}

TEST(BaseCurveTest, OneUnsetNumberOfTheFourLeavesNoEndLines) {
  for (float BaseCurve::*const number : {&BaseCurve::minA, &BaseCurve::minB, &BaseCurve::maxA, &BaseCurve::maxB}) {
    BaseCurve curve{.minA = 1, .minB = 2, .maxA = 3, .maxB = 4};
    EXPECT_TRUE(curve.hasEndLines());
    curve.*number = -99999.0f;
    EXPECT_FALSE(curve.hasEndLines());
  }
}

TEST(BaseCurveTest, ATypedPolynomeRunsOverTheWholeAxis) {
  BaseCurve curve{
      .coefficients = {1, 2, 3, 4}, .minTorque = 0.2f, .maxTorque = 1.1f, .maxConsistency = 9, .minA = 1, .minB = 2, .maxA = 3, .maxB = 4};
  curve.takeWholeRange();
  EXPECT_EQ(curve.minTorque, 0.0f);
  EXPECT_EQ(curve.maxTorque, 1.5f);
  EXPECT_FALSE(curve.hasEndLines());
  EXPECT_EQ(curve.maxConsistency, 9.0f);
  EXPECT_EQ(curve.coefficients, (Coefficients{1, 2, 3, 4}));
}

}  // namespace
}  // namespace ostrand
