#include <functional>

#include "platform/base/NumberText.h"
#include "support/TextEditBench.h"

// Values that pass through units, locales and typing many times, and values that come while the host is asked.
namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;

using CtrTextEditUnitsTest = TextEditBench;

// A value is what it was, however often the user changes units and locale, whether he edited it or not.
TEST_F(CtrTextEditUnitsTest, UnitsAndLocalesNeverChangeAValue) {
  connect();
  const Ref<FakeTextTable> table = messenger->textTable;
  unsigned state = 12345;
  const auto random = [&](unsigned n) { return (state = state * 1103515245u + 12345u) >> 16 & 0x7fff ? (state >> 16) % n : 0u; };
  const char* units[] = {"degC", "degF", "K"};
  const char* locales[] = {"en", "fi", "sv", "de"};
  for (int round = 0; round < 300; ++round) {
    const std::string value = plainText((static_cast<double>(random(30000)) - 10000.0) / 97.0, '.');
    const std::string decimals = std::to_string(random(4));
    messenger->converter->userUnits["x"] = units[random(3)];
    desktop.setLocale(locales[random(4)]);
    offline("name=\"x\" type=\"floatVal\" value=\"" + value + "\" unit=\"degC\" decimals=\"" + decimals + "\"");
    const int how = static_cast<int>(random(3));
    if (how == 1) edit().type(plainText(static_cast<double>(random(9000)) / 31.0, '.'));
    if (how == 2) edit().type(plainText(static_cast<double>(random(9000)) / 31.0, '.') + " " + units[random(3)]);
    const bool modified = edit().Modified();
    const std::string before = sent();
    if (how == 0) {
      // Passed through without typing.
      edit().SetFocus();
      edit().leave();
      ASSERT_FALSE(edit().Modified());
      ASSERT_FALSE(modified);
      ASSERT_EQ(before, item(value, "floatVal", "degC"));
    }
    const std::string unit = edit().displayUnit(), text = edit().Text(), locale = desktop.locale().name;
    for (int change = 0; change < 5; ++change) {
      messenger->converter->userUnits["x"] = units[random(3)];
      desktop.setLocale(locales[random(4)]);
      random(2) ? messenger->raiseUnits() : edit().Localize(table);
      ASSERT_EQ(sent(), before) << "round " << round;
      ASSERT_EQ(edit().Modified(), modified);
    }
    messenger->converter->userUnits["x"] = unit;
    desktop.setLocale(locale);
    messenger->raiseUnits();
    ASSERT_EQ(sent(), before);
    ASSERT_EQ(edit().Text(), text);
  }
}

// An edit that is typed back is none, whatever was typed, set by code or switched in between; one that differs can be written.
TEST_F(CtrTextEditUnitsTest, WhatCountsAsAnEditDependsOnTheNumberAlone) {
  connect();
  unsigned state = 99;
  const auto random = [&](unsigned n) { return (state = state * 1103515245u + 12345u, (state >> 16) % n); };
  const char* units[] = {"degC", "degF", "K"};
  for (int round = 0; round < 500; ++round) {
    const double number = (static_cast<double>(random(30000)) - 10000.0) / 97.0;
    const std::string stored = plainText(number, '.');
    messenger->converter->userUnits["x"] = units[random(3)];
    desktop.setLocale(random(2) ? "en" : "fi");
    offline("name=\"x\" type=\"floatVal\" value=\"" + stored + "\" unit=\"degC\" decimals=\"" + std::to_string(random(4)) + "\"");
    const std::string shown = edit().Text();
    if (random(2)) edit().type(plainText(static_cast<double>(random(9000)) / 31.0, '.') + " " + units[random(3)]);
    if (random(2)) edit().Text("0");
    messenger->converter->userUnits["x"] = units[random(3)];
    messenger->raiseUnits();
    edit().type(stored + " degC");
    ASSERT_FALSE(edit().Modified()) << stored;
    ASSERT_EQ(edit().Text(), edit().storedText());
    ASSERT_EQ(sent(), item(stored, "floatVal", "degC"));
    // One step of the screen further is another number.
    edit().type(plainText(number + 10.0, '.') + " degC");
    ASSERT_TRUE(edit().Modified());
  }
}

// --- what changes while the host is asked

TEST_F(CtrTextEditUnitsTest, TheBoundNameOutlivesItsTag) {
  const std::string name = "aParameterNameThatIsTooLongForTheStringItself", tag = "ctr_" + name;
  connect();
  edit().Tag(tag);
  offline(kTemperature);
  const auto retag = [&] { edit().Tag("ctr_another" + std::string(300, 'x')), edit().Tag(tag + std::string(300, 'y')), edit().Tag("short"); };
  calls.during("SetParameterStatus", retag);
  edit().type("300");
  EXPECT_THAT(take(), ElementsAre("SetParameterStatus \"" + name + "\" \"edited\"", "SetParameterStatus \"" + name + "\" \"editedError\""));
  edit().Tag(tag);
  calls.during("SetParameterStatus", retag);
  edit().handleError("missingItems");
  edit().Tag(tag);
  take();
  edit().restore();
  edit().Localize(messenger->textTable);
  calls.during("GetLabel", retag);
  messenger->raiseGetChanges(1);
  const std::vector<std::string> lines = take();
  EXPECT_EQ(lines.back(), "AddChange \"" + name + "\" \"L:" + name + "\" \"20\" \"20\" \"degC\" \"floatVal\" \"\"");
}

// Every question to the host may bring another value, and with it the end of what was typed.
TEST_F(CtrTextEditUnitsTest, AValueMayComeWhileTheHostIsAsked) {
  connect();
  messenger->converter->userUnits["x"] = "degF";
  for (const char* call : {"GetUnitConverter", "ConvertValue", "GetUnitInfo"})
    for (int nth = 1; nth <= 6; ++nth) {
      offline(kTemperature);
      edit().type("86");
      int left = nth;
      std::function<void()> work = [&] {
        if (--left > 0) return calls.during(call, work);
        offline(R"(name="aQuiteDifferentParameterWithALongName" type="floatVal" value="1" unit="K")");
      };
      calls.during(call, work);
      edit().type("90 degF");
      edit().GetXmlItem();
      messenger->raiseUnits();
      edit().SetOnlineData(itemNode("x", "floatVal", "70", "unit=\"degF\""));
      calls.during(call, [] {});
      offline(kTemperature);
      EXPECT_EQ(edit().stored(), "20");
      EXPECT_FALSE(edit().Modified());
    }
}

}  // namespace
}  // namespace ostrand
