#include "platform/controls/ParameterInfo.h"

#include <gtest/gtest.h>

#include "platform/controls/UnitSearch.h"
#include "support/Documents.h"
#include "support/FakeUnitConverter.h"

namespace ostrand {
namespace {

using namespace test;

TEST(ParameterInfoTest, TakesEverythingFromTheAttributes) {
  ParameterInfo info;
  const Node node = parameterNode(
      R"(name="damping" type="floatVal" value="4.5" offlineValue="5" unit="s" decimals="2" minVal="0.5" maxVal="60" access="readWrite")");
  const ParameterValues values = info.read(node);
  EXPECT_EQ(info.type, "floatVal");
  EXPECT_EQ(info.unit, "s");
  EXPECT_EQ(info.decimals, 2);
  EXPECT_EQ(info.min, 0.5);
  EXPECT_EQ(info.max, 60.0);
  EXPECT_FALSE(info.readOnly);
  EXPECT_FALSE(info.writeOnly);
  EXPECT_EQ(values.value, "4.5");
  EXPECT_EQ(values.offlineValue, "5");
}

TEST(ParameterInfoTest, WhatIsMissingOrNoNumberIsAbsent) {
  ParameterInfo info;
  info.read(parameterNode(R"(name="a" type="floatVal" unit="s" decimals="1" minVal="1" maxVal="2" access="read")"));
  EXPECT_TRUE(info.readOnly);
  info.read(parameterNode(R"(name="b" unit="" decimals="" minVal="low" maxVal="")"));
  EXPECT_EQ(info.type, "");
  EXPECT_EQ(info.unit, "noUnit");
  EXPECT_FALSE(info.decimals);
  EXPECT_FALSE(info.min);
  EXPECT_FALSE(info.max);
  EXPECT_FALSE(info.readOnly);
  for (const char* decimals : {"-1", "16", "1.5", "two"}) {
    info.read(parameterNode(std::string("decimals=\"") + decimals + "\""));
    EXPECT_FALSE(info.decimals) << decimals;
  }
}

TEST(ParameterInfoTest, AnEmptyNodeEmptiesTheDescription) {
  ParameterInfo info;
  info.read(parameterNode(R"(name="a" type="floatVal" unit="s" decimals="1" minVal="1" maxVal="2" access="write")"));
  EXPECT_TRUE(info.writeOnly);
  info.read(Node());
  EXPECT_EQ(info.unit, "noUnit");
  EXPECT_FALSE(info.decimals || info.min || info.max || info.readOnly || info.writeOnly);
}

TEST(ParameterInfoTest, AnyTypeThatBeginsWithIntOrFloatIsNumeric) {
  const auto info = [](const char* type) {
    ParameterInfo made;
    made.type = type;
    return made;
  };
  for (const char* type : {"intVal", "integerVal"}) {
    EXPECT_TRUE(info(type).isInteger()) << type;
    EXPECT_EQ(info(type).wireType(), "integerVal");
  }
  for (const char* type : {"float", "floatVal"}) {
    EXPECT_TRUE(info(type).isFloat()) << type;
    EXPECT_EQ(info(type).wireType(), "floatVal");
  }
  for (const char* type : {"", "stringVal"}) {
    EXPECT_FALSE(info(type).isNumeric()) << type;
    EXPECT_EQ(info(type).wireType(), "stringVal");
  }
}

TEST(ParameterInfoTest, PercentagesAndNoUnitNeverConvert) {
  ParameterInfo info;
  for (const auto& [unit, converts] :
       {std::pair{"degC", true}, {"N", true}, {"", false}, {"noUnit", false}, {"%", false}, {"%Cs", false}, {"% Cs", false}}) {
    info.unit = unit;
    EXPECT_EQ(info.hasConvertibleUnit(), converts) << unit;
  }
}

TEST(ParameterInfoTest, TheValueElementIsThatOfTheTypeElseTheFirst) {
  const Node item = Document::read("<comm:item name='a'><comm:stringVal>s</comm:stringVal><comm:floatVal>1</comm:floatVal></comm:item>").root();
  EXPECT_EQ(valueElement(item, "floatVal").text(), "1");
  EXPECT_EQ(valueElement(item, "stringVal").text(), "s");
  EXPECT_EQ(valueElement(item, "float").text(), "s");
  EXPECT_EQ(valueElement(item, "").text(), "s");
  EXPECT_FALSE(valueElement(Document::read("<comm:item name='a'/>").root(), "floatVal"));
}

TEST(UnitSearchTest, FindsTheNameOrOneOfItsTails) {
  FakeCalls calls;
  const Ref<FakeUnitConverter> converter(new FakeUnitConverter(calls));
  converter->userUnits = {{"torque", "ftlbf"}, {"2Speed", "K"}, {"sample2Torque", "kNm"}};
  std::string unit = "untouched";
  EXPECT_TRUE(findUserUnit(*converter, "torque", unit));
  EXPECT_EQ(unit, "ftlbf");
  EXPECT_TRUE(findUserUnit(*converter, "sample1Torque", unit));
  EXPECT_EQ(unit, "ftlbf");
  EXPECT_TRUE(findUserUnit(*converter, "sample2Torque", unit)) << "the whole name comes first";
  EXPECT_EQ(unit, "kNm");
  EXPECT_TRUE(findUserUnit(*converter, "fan2Speed", unit)) << "a digit begins a tail as a capital does";
  EXPECT_EQ(unit, "K");
  unit = "untouched";
  EXPECT_FALSE(findUserUnit(*converter, "mytorque", unit));
  EXPECT_FALSE(findUserUnit(*converter, "", unit));
  EXPECT_EQ(unit, "untouched");
}

}  // namespace
}  // namespace ostrand
