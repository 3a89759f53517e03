#include "platform/controls/DeviceValue.h"

#include <gtest/gtest.h>

#include "platform/base/NumberText.h"
#include "support/Documents.h"
#include "support/FakeUnitConverter.h"

namespace ostrand {
namespace {

using namespace test;

// A value with a unit service and a locale, and nothing else.
struct DeviceValueTest : testing::Test, UnitSource {
  FakeCalls calls;
  Ref<FakeUnitConverter> service{new FakeUnitConverter(calls)};
  const Locale* locale = &Locale::english();
  mutable int asked = 0;
  DeviceValue value;

  Ref<IUnitConverter> converter() const override { return ++asked, service; }

  void describe(const std::string& attributes) {
    const Node parameter = parameterNode("name=\"x\" " + attributes);
    value.store(value.documentText(value.describe(parameter).value));
    value.chooseUnit("x", *this);
  }
  void show(const char* unit) {
    service->userUnits["x"] = unit;
    value.chooseUnit("x", *this);
  }
  std::string screen() const { return value.onScreen(*locale, *this); }
  std::string told() const { return value.told(*this).value_or("nothing"); }
  std::string received(const std::string& text, const std::string& attributes = {}) const {
    const auto got = value.received(itemNode("x", "floatVal", text, attributes), *this);
    return got ? got->text + (got->usable ? "" : " not usable") : "nothing";
  }
};

TEST_F(DeviceValueTest, HasTwoTextsForOneValue) {
  describe("type=\"floatVal\" value=\" 4.256\" decimals=\"2\" unit=\"degC\"");
  EXPECT_EQ(value.stored(), "4.256");
  EXPECT_EQ(screen(), "4.26");
  EXPECT_EQ(told(), "4.256");
  EXPECT_EQ(value.number(*this), 4.256);
  locale = Locale::find("fi");
  EXPECT_EQ(screen(), "4,26");
  show("degF");
  EXPECT_EQ(value.displayUnit(), "degF");
  EXPECT_EQ(screen(), "39,66");
  EXPECT_EQ(told(), "4.256");
}

TEST_F(DeviceValueTest, WhatIsNoNumberStandsAsItIs) {
  describe("type=\"floatVal\" value=\"NaN\"");
  EXPECT_EQ(screen(), "NaN");
  EXPECT_FALSE(value.number(*this));
  EXPECT_FALSE(value.check(*this).passes);
  describe("type=\"stringVal\" value=\" 4.2 \"");
  EXPECT_EQ(screen(), " 4.2 ") << "a text keeps its blanks";
  EXPECT_TRUE(value.check(*this).passes);
}

TEST_F(DeviceValueTest, TheServiceIsAskedOnlyWhereItIsNeeded) {
  describe("type=\"floatVal\" value=\"1\" unit=\"noUnit\"");
  describe("type=\"floatVal\" value=\"1\" unit=\"%Cs\"");
  describe("type=\"stringVal\" value=\"1\" unit=\"degC\"");
  value.edit({"2", value.displayUnit(), true});
  screen(), told(), value.check(*this), received("3");
  EXPECT_EQ(asked, 0);
  describe("type=\"floatVal\" value=\"1\" unit=\"degC\"");
  EXPECT_EQ(asked, 1);
  screen(), told(), value.check(*this), received("3"), received("3", "unit=\"degC\"");
  EXPECT_EQ(asked, 1);
}

TEST_F(DeviceValueTest, AServiceThatFailsLeavesTheUnitOnTheScreen) {
  describe("type=\"floatVal\" value=\"20\" unit=\"degC\"");
  show("degF");
  calls.fail("GetUnitInfo");
  EXPECT_ANY_THROW(show("K"));
  EXPECT_EQ(value.displayUnit(), "degF");
  service->userUnits["x"] = "Nm";
  value.chooseUnit("x", *this);
  EXPECT_EQ(value.displayUnit(), "degC") << "it cannot be converted to";
}

TEST_F(DeviceValueTest, AnotherDataUnitIsShownUntilTheUsersIsKnown) {
  describe("type=\"floatVal\" value=\"20\" unit=\"degC\"");
  show("degF");
  value.describe(parameterNode("name=\"x\" type=\"floatVal\" unit=\"Nm\""));
  EXPECT_EQ(value.displayUnit(), "Nm");
}

TEST_F(DeviceValueTest, TakesWhatAnItemTells) {
  describe("type=\"floatVal\" unit=\"degC\"");
  EXPECT_EQ(received("\n\t20.5\n"), "20.5");
  EXPECT_EQ(received("68", "unit=\"degF\""), "20");
  EXPECT_EQ(received("5", "unit=\"%\""), "5");
  EXPECT_EQ(received("NaN", "unit=\"degF\""), "NaN");
  EXPECT_EQ(received("-Inf"), "-Inf");
  EXPECT_EQ(received("hot"), "hot not usable");
  EXPECT_EQ(received("5", "unit=\"Nm\""), "5 Nm not usable") << "never as if it were in the data unit";
  EXPECT_FALSE(value.received(Document::read("<comm:item name='x'/>").root(), *this));
  service = nullptr;
  EXPECT_EQ(received("68", "unit=\"degF\""), "68 degF not usable");
  describe("type=\"stringVal\"");
  EXPECT_EQ(received(" a text "), " a text ");
}

TEST_F(DeviceValueTest, AnEditIsTheStoredValueWhenItsNumberIs) {
  describe("type=\"floatVal\" value=\"3.456\" decimals=\"2\" unit=\"degC\"");
  const auto isStored = [&](const char* text, const char* unit = "degC") { return value.isStored({text, unit, true}, *this); };
  for (const char* same : {"3.456", "3,456", " +3.4560 ", "3456e-3"}) EXPECT_TRUE(isStored(same)) << same;
  for (const char* other : {"3.46", "", "hot", "3.4560000001", "NaN"}) EXPECT_FALSE(isStored(other)) << other;
  EXPECT_TRUE(isStored("38.2208", "degF"));
  EXPECT_FALSE(isStored("38.22", "degF"));
  EXPECT_FALSE(isStored("3.456", "Nm")) << "cannot be told";
  describe("type=\"floatVal\" value=\"NaN\"");
  EXPECT_TRUE(isStored("NaN", "noUnit"));
  EXPECT_FALSE(isStored("0", "noUnit"));
  describe("type=\"floatVal\" value=\"0\" unit=\"degC\"");
  EXPECT_TRUE(isStored("32", "degF"));
  describe("type=\"floatVal\" value=\"\"");
  EXPECT_TRUE(isStored("", "noUnit"));
  describe("type=\"stringVal\" value=\"2\"");
  EXPECT_FALSE(isStored("2.0", "noUnit"));
}

TEST_F(DeviceValueTest, RoundsToTheScreenInItsOwnUnitOnly) {
  describe("type=\"floatVal\" value=\"1\" decimals=\"2\" unit=\"degC\"");
  EXPECT_EQ(value.rounded({"4,255", "degC", true}).text, "4.26");
  EXPECT_EQ(value.rounded({"4.255", "degF", true}).text, "4.255");
  EXPECT_EQ(value.rounded({"hot", "degC", true}).text, "hot");
  describe("type=\"integerVal\" value=\"1\" decimals=\"0\"");
  EXPECT_EQ(value.rounded({"2.5", "noUnit", true}).text, "2.5") << "not rounded to what would pass";
  EXPECT_EQ(value.rounded({"2.0", "noUnit", true}).text, "2");
}

TEST_F(DeviceValueTest, AnEditStandsInItsOwnUnit) {
  describe("type=\"floatVal\" value=\"1\" unit=\"degC\" decimals=\"1\" minVal=\"0\" maxVal=\"100\"");
  value.edit({"86", "degF", true});
  EXPECT_EQ(screen(), "30.0");
  EXPECT_EQ(told(), "30");
  show("degF");
  EXPECT_EQ(screen(), "86.0");
  EXPECT_TRUE(value.check(*this).passes);
  value.edit({"213", "degF", true});
  EXPECT_FALSE(value.check(*this).passes);
  service = nullptr;
  EXPECT_EQ(told(), "nothing");
  EXPECT_FALSE(value.check(*this).passes);
  EXPECT_EQ(screen(), "213.0");
  value.dropEdit();
  EXPECT_EQ(told(), "1");
}

TEST_F(DeviceValueTest, WhatCodeHasSetStandsAsItWasSet) {
  describe("type=\"floatVal\" value=\"1\" decimals=\"2\" unit=\"degC\"");
  value.edit({"7", "degC", false});
  EXPECT_EQ(screen(), "7");
  show("degF");
  EXPECT_EQ(screen(), "44.60");
  value.edit({"", "degF", false});
  EXPECT_TRUE(value.check(*this).passes) << "wrong only where the user has emptied it";
  value.edit({"", "degF", true});
  EXPECT_FALSE(value.check(*this).passes);
}

TEST_F(DeviceValueTest, LimitsHoldInTheDataUnit) {
  describe("type=\"integerVal\" value=\"5\" minVal=\"1\" maxVal=\"9\"");
  for (const auto& [text, passes] : {std::pair{"1", true}, {"9", true}, {"0", false}, {"10", false}, {"5.5", false}, {"x", false}}) {
    value.edit({text, "noUnit", true});
    EXPECT_EQ(value.check(*this).passes, passes) << text;
  }
  EXPECT_FALSE(value.check(*this).number);
}

// As an editor of many values has them: each its own, copied and grown like any value.
TEST_F(DeviceValueTest, ManyStandSideBySide) {
  std::vector<DeviceValue> values;
  for (int i = 0; i < 34; ++i) {
    DeviceValue& at = values.emplace_back();
    at.store(at.documentText(
        at.describe(parameterNode("name=\"x" + std::to_string(i) + "\" type=\"floatVal\" decimals=\"3\" value=\"" + std::to_string(i) + ".5\""))
            .value));
    if (i % 2) at.edit({"1", "noUnit", true});
  }
  EXPECT_EQ(values[33].info().type, "floatVal");
  EXPECT_EQ(values[32].onScreen(*locale, *this), "32.500");
  EXPECT_EQ(values[33].onScreen(*locale, *this), "1.000");
  EXPECT_EQ(asked, 0);
}

// The service may be the host's, who brings another value while he is asked.
TEST_F(DeviceValueTest, NothingIsBorrowedAcrossAQuestion) {
  const auto other = [&] {
    value.describe(parameterNode("name=\"another\" type=\"floatVal\" unit=\"aUnitThatIsTooLongForTheStringItself\""));
    value.store("7");
    value.dropEdit();
  };
  for (const char* call : {"GetUnitInfo", "ConvertValue"}) {
    for (int action = 0; action < 5; ++action) {
      describe("type=\"floatVal\" value=\"20\" unit=\"degC\" minVal=\"0\"");
      show("degF");
      value.edit({"300", "K", true});
      calls.during(call, other);
      if (action == 0) screen();
      if (action == 1) told();
      if (action == 2) value.check(*this);
      if (action == 3) value.chooseUnit("x", *this);
      if (action == 4) value.isStored({"300", "K", true}, *this);
      calls.during(call, [] {});
    }
  }
  value.dropEdit();
  describe("type=\"floatVal\" value=\"20\" unit=\"degC\"");
  EXPECT_EQ(told(), "20");
}

}  // namespace
}  // namespace ostrand
