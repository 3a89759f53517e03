#include "platform/controls/CtrTextEdit.h"

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "support/ControlBench.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTemperature = R"(name="x" type="floatVal" value="20" unit="degC" decimals="1" minVal="0" maxVal="100" access="readWrite")";

struct CtrTextEditTest : ControlBench<CtrTextEdit> {
  void offline(const std::string& attributes) { edit().setOfflineData(parameterNode(attributes)); }
  void offlineFloat(const std::string& value, const std::string& rest = {}) { offline("name=\"x\" type=\"floatVal\" value=\"" + value + "\" " + rest); }
  // Temperatures in degF, as the user wants them.
  void fahrenheit() {
    messenger->converter->userUnits["x"] = "degF";
    messenger->raiseUnits();
  }
  std::string sent(bool ignoreErrors = true) {
    const Node item = edit().GetXmlItem(ignoreErrors);
    return item ? item.xml() : "nothing";
  }
  static std::string item(const std::string& value, const std::string& type = "floatVal", const std::string& unit = "noUnit") {
    return "<item name=\"x\" unit=\"" + unit + "\"><" + type + ">" + value + "</" + type + "></item>";
  }
};

// --- showing

TEST_F(CtrTextEditTest, ShowsAValueInItsDecimalsAndTheLocalesForm) {
  offlineFloat("4.256", "decimals=\"2\"");
  EXPECT_EQ(edit().Text(), "4.26");
  desktop.setLocale("fi");
  offlineFloat("4.256", "decimals=\"2\"");
  EXPECT_EQ(edit().Text(), "4,26");
  offlineFloat("4.256");
  EXPECT_EQ(edit().Text(), "4,256");
  offline(R"(name="x" type="stringVal" value="4.256")");
  EXPECT_EQ(edit().Text(), "4.256") << "a text is no number, whatever it looks like";
}

TEST_F(CtrTextEditTest, WhatIsNoNumberStandsAsItIsAndIsNotCorrect) {
  for (const char* text : {"NaN", "-Inf", "many"}) {
    offlineFloat(text, "decimals=\"2\"");
    EXPECT_EQ(edit().Text(), text);
    EXPECT_FALSE(edit().Correct());
    EXPECT_FALSE(edit().Modified());
    EXPECT_EQ(sent(), item(text));
    EXPECT_EQ(sent(false), "nothing");
  }
}

TEST_F(CtrTextEditTest, AnEmptyValueIsShownEmptyAndIsCorrect) {
  offlineFloat("", "minVal=\"1\"");
  EXPECT_EQ(edit().Text(), "");
  EXPECT_TRUE(edit().Correct());
  EXPECT_EQ(edit().GetXmlItem().child("floatVal").text(), "");
}

TEST_F(CtrTextEditTest, AnEmptyNodeEmptiesTheEdit) {
  offlineFloat("4", "access=\"read\"");
  EXPECT_TRUE(edit().HasParameter());
  EXPECT_TRUE(edit().ReadOnly());
  edit().setOfflineData(Node());
  EXPECT_EQ(edit().Text(), "");
  EXPECT_FALSE(edit().HasParameter());
  EXPECT_FALSE(edit().ReadOnly());
  EXPECT_TRUE(edit().Correct());
}

TEST_F(CtrTextEditTest, ImportShowsAsOfflineDoes) {
  edit().setImportData(parameterNode(kTemperature));
  EXPECT_EQ(edit().Text(), "20.0");
  EXPECT_TRUE(edit().HasParameter());
}

TEST_F(CtrTextEditTest, AnUnchangedValueRaisesNoSignal) {
  connect();
  offline(kTemperature);
  take();
  int changes = 0;
  edit().Change.connect([&](const std::string&) { ++changes; });
  signals = 0;
  offline(kTemperature);
  edit().SetOnlineData(itemNode("x", "floatVal", "20.01"));
  EXPECT_EQ(signals, 0);
  EXPECT_EQ(changes, 0);
  edit().SetOnlineData(itemNode("x", "floatVal", "21"));
  EXPECT_GT(signals, 0);
  EXPECT_EQ(changes, 1);
}

// --- limits

TEST_F(CtrTextEditTest, CorrectMeansWithinTheLimits) {
  offline(kTemperature);
  for (const auto& [text, correct] : {std::pair{"0", true}, {"100", true}, {"-0.1", false}, {"100.1", false}, {"hot", false}, {"", false}}) {
    edit().type(text);
    EXPECT_EQ(edit().Correct(), correct) << text;
    EXPECT_EQ(edit().ValueIsValid(), correct) << text;
  }
}

TEST_F(CtrTextEditTest, AValueOfADocumentIsHeldAgainstItsLimitsToo) {
  offlineFloat("120", "minVal=\"0\" maxVal=\"100\"");
  EXPECT_FALSE(edit().Correct());
  edit().SetOnlineData(itemNode("x", "floatVal", "99"));
  EXPECT_TRUE(edit().Correct());
}

TEST_F(CtrTextEditTest, AWholeNumberTakesNoFraction) {
  offline(R"(name="x" type="integerVal" value="3" decimals="0")");
  edit().type("3.5");
  EXPECT_EQ(edit().Text(), "3.5") << "not rounded to what would pass";
  EXPECT_FALSE(edit().Correct());
  edit().type("4.0");
  EXPECT_EQ(edit().Text(), "4");
  EXPECT_TRUE(edit().Correct());
  EXPECT_EQ(sent(), item("4", "integerVal"));
}

TEST_F(CtrTextEditTest, ALimitMayBeTypedAsTheScreenRoundsIt) {
  connect();
  offline(R"(name="x" type="floatVal" value="0" unit="degC" decimals="0" minVal="1" maxVal="100")");
  fahrenheit();
  EXPECT_EQ(edit().shownLimit(edit().info().min), "34");
  edit().type("34");
  EXPECT_TRUE(edit().Correct());
  edit().type("33");
  EXPECT_FALSE(edit().Correct()) << "0.6 degC";
  EXPECT_EQ(edit().shownLimit(std::nullopt), "");
}

// --- typing

TEST_F(CtrTextEditTest, PointAndCommaBothWorkInEveryLocale) {
  for (const char* locale : {"en", "fi", "sv", "de"}) {
    desktop.setLocale(locale);
    for (const char* text : {"4.25", "4,25", " 4.25 ", "+4,25"}) {
      offlineFloat("1");
      edit().type(text);
      EXPECT_EQ(edit().Text(), desktop.locale().decimalSeparator == ',' ? "4,25" : "4.25");
      EXPECT_TRUE(edit().Correct() && edit().Modified());
      EXPECT_EQ(sent(), item("4.25")) << locale << ": " << text;
    }
    edit().type("1.000,5");
    EXPECT_FALSE(edit().Correct()) << "no group separators";
  }
}

TEST_F(CtrTextEditTest, TypedDecimalsAreThoseOnTheScreen) {
  offlineFloat("1", "decimals=\"2\"");
  edit().type("4.255");
  EXPECT_EQ(edit().Text(), "4.26");
  EXPECT_EQ(sent(), item("4.26"));
}

TEST_F(CtrTextEditTest, WhatIsTypedBackIsNoEdit) {
  offlineFloat("4.2561", "decimals=\"2\"");
  edit().type("5");
  EXPECT_TRUE(edit().Modified());
  edit().type("4.26");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(sent(), item("4.2561")) << "and the stored digits are whole again";
}

TEST_F(CtrTextEditTest, AnotherUnitMayStandBehindTheNumber) {
  connect();
  offline(kTemperature);
  edit().type("68.9 degF");
  EXPECT_EQ(edit().Text(), "20.5");
  EXPECT_EQ(sent(), item("20.5", "floatVal", "degC"));
  edit().type("293.15 K");
  EXPECT_FALSE(edit().Modified()) << "just the stored 20.0";
  edit().type("21 degC");
  EXPECT_EQ(edit().Text(), "21.0");
  edit().type("300 degF");
  EXPECT_EQ(edit().Text(), "148.9") << "in the unit of the screen, although it is beyond the limit";
  EXPECT_FALSE(edit().Correct());
  edit().type("12 Nm");
  EXPECT_FALSE(edit().Correct()) << "a unit of another quantity is no number";
  EXPECT_EQ(edit().Text(), "12 Nm");
}

TEST_F(CtrTextEditTest, TheDataUnitIsKnownWithoutAHost) {
  offline(kTemperature);
  edit().type("21 degC");
  EXPECT_EQ(sent(), item("21.0", "floatVal", "degC"));
  edit().type("70 degF");
  EXPECT_FALSE(edit().Correct());
}

TEST_F(CtrTextEditTest, TheUserCannotReachAHiddenDisabledOrReadOnlyEdit) {
  offline(kTemperature);
  edit().Visible(false);
  EXPECT_EQ(errorOf([&] { edit().type("1"); }), 70);
  edit().Visible(true);
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().type("1"); }), 70);
  edit().Enabled(true);
  edit().ReadOnly(true);
  EXPECT_EQ(errorOf([&] { edit().type("1"); }), 70);
  EXPECT_EQ(errorOf([&] { edit().restore(); }), 70);
  EXPECT_EQ(edit().Text(), "20.0");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrTextEditTest, RestoreTakesBackTheEdit) {
  connect();
  offline(kTemperature);
  edit().type("300");
  take();
  edit().restore();
  EXPECT_EQ(edit().Text(), "20.0");
  EXPECT_FALSE(edit().Modified());
  EXPECT_TRUE(edit().Correct());
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "corrected")", R"(SetParameterStatus "x" "original")"));
}

TEST_F(CtrTextEditTest, ARestrictedEditTakesWhatItsTypeCanHold) {
  offline(R"(name="x" type="stringVal" value="")");
  edit().type("flow-1ö~");
  EXPECT_EQ(edit().Text(), "flow-1ö~");
  edit().SetTextOption(true);
  edit().type("flow-1ö~{");
  EXPECT_EQ(edit().Text(), "FLOW-1");
  edit().SetTextOption(false);
  edit().type("low");
  EXPECT_EQ(edit().Text(), "low");

  edit().SetTextOption(true);
  offline(R"(name="x" type="integerVal" value="0")");
  edit().type("4.2x5");
  EXPECT_EQ(edit().Text(), "425");
  offlineFloat("0");
  edit().type("4,2x5");
  EXPECT_EQ(edit().Text(), "4.25");
}

// --- set by code

TEST_F(CtrTextEditTest, ATextSetByCodeIsNoEditUntilMarked) {
  connect();
  offline(kTemperature);
  take();
  edit().Text("30");
  EXPECT_EQ(edit().Text(), "30") << "as it was set";
  EXPECT_FALSE(edit().Modified());
  EXPECT_THAT(take(), IsEmpty());
  edit().MarkEdited(true);
  EXPECT_TRUE(edit().Modified());
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  EXPECT_EQ(sent(), item("30", "floatVal", "degC"));
}

TEST_F(CtrTextEditTest, ATextSetByCodeFollowsTheUnits) {
  connect();
  offline(kTemperature);
  desktop.setLocale("de");
  edit().Text("30,5");
  EXPECT_EQ(sent(), item("30.5", "floatVal", "degC"));
  fahrenheit();
  EXPECT_EQ(edit().Text(), "86,9");
  EXPECT_EQ(sent(), item("30.5", "floatVal", "degC"));
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrTextEditTest, MarkedAsNotEditedTheTextIsTheStoredOne) {
  connect();
  offline(kTemperature);
  edit().type("42");
  take();
  edit().MarkEdited(false);
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().stored(), "42.0");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "original")"));
  edit().type("42");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrTextEditTest, AnEmptyTextSetByCodeIsCorrectAndIsTold) {
  offline(kTemperature);
  edit().Text("");
  edit().MarkEdited(false);
  EXPECT_EQ(edit().Text(), "");
  EXPECT_TRUE(edit().Correct());
  EXPECT_EQ(sent(false), item("", "floatVal", "degC"));
  EXPECT_EQ(edit().stored(), "");
}

TEST_F(CtrTextEditTest, ModifiedCanBePutBackAfterATextInBetween) {
  offline(kTemperature);
  edit().type("42");
  edit().Text("0");
  EXPECT_EQ(sent(), item("0", "floatVal", "degC"));
  edit().Text("42.0");
  EXPECT_FALSE(edit().Modified());
  edit().Modified(true);
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), item("42.0", "floatVal", "degC"));
}

TEST_F(CtrTextEditTest, MayBeGivenItsOwnText) {
  offlineFloat("1234567890123456789.5");
  edit().Text(edit().Text());
  EXPECT_EQ(edit().Text(), "1.23456789012346E+18");
}

TEST_F(CtrTextEditTest, AListenerMaySetAnotherTextWhileOthersHearOfThisOne) {
  offline(R"(name="x" type="stringVal" value="")");
  std::vector<std::string> heard;
  edit().Change.connect([&](const std::string& text) {
    if (text == "first") edit().Text("second, a longer text than the first one was");
  });
  edit().Change.connect([&](const std::string& text) { heard.push_back(text); });
  edit().type("first");
  EXPECT_THAT(heard, ElementsAre("second, a longer text than the first one was", "first"));
}

// --- what was edited without the device

TEST_F(CtrTextEditTest, AnOfflineValueComesBackAsAnEditToTheLastDigit) {
  connect();
  offline(R"(name="x" type="floatVal" value="4" offlineValue="4.126" unit="noUnit" decimals="2")");
  EXPECT_EQ(edit().Text(), "4.13");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(edit().stored(), "4");
  EXPECT_EQ(sent(), item("4.126"));
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  edit().restore();
  EXPECT_EQ(edit().Text(), "4.00");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrTextEditTest, TheSameOfflineValueAgainTellsNothing) {
  connect();
  const char* kParameter = R"(name="x" type="floatVal" value="4" offlineValue="5")";
  offline(kParameter);
  int changes = 0;
  edit().Change.connect([&](const std::string&) { ++changes; });
  take();
  signals = 0;
  offline(kParameter);
  EXPECT_THAT(take(), IsEmpty());
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(signals, 0);
}

TEST_F(CtrTextEditTest, AnOfflineValueThatIsTheStoredOneIsNoEdit) {
  offline(R"(name="x" type="floatVal" value="4" offlineValue="4")");
  EXPECT_FALSE(edit().Modified());
  offline(R"(name="x" type="floatVal" value="" offlineValue="200" maxVal="100")");
  EXPECT_TRUE(edit().Modified());
  EXPECT_FALSE(edit().Correct());
}

// --- units

TEST_F(CtrTextEditTest, ShowsTheUsersUnitAndTellsTheDataUnit) {
  connect();
  messenger->converter->userUnits["x"] = "degF";
  offline(kTemperature);
  EXPECT_EQ(edit().displayUnit(), "degF");
  EXPECT_EQ(edit().Text(), "68.0");
  EXPECT_EQ(edit().shownLimit(edit().info().max), "212.0");
  edit().SetOnlineData(itemNode("x", "floatVal", "25"));
  EXPECT_EQ(edit().Text(), "77.0");
  edit().type("86");
  EXPECT_EQ(sent(), item("30", "floatVal", "degC"));
  edit().type("213");
  EXPECT_FALSE(edit().Correct());
  messenger->converter->userUnits.clear();
  messenger->raiseUnits();
  EXPECT_EQ(edit().displayUnit(), "degC");
}

TEST_F(CtrTextEditTest, WithoutAConverterTheDataUnitStands) {
  connect();
  messenger->converter = nullptr;
  offline(kTemperature);
  messenger->raiseUnits();
  EXPECT_EQ(edit().Text(), "20.0");
  EXPECT_EQ(edit().displayUnit(), "degC");
}

TEST_F(CtrTextEditTest, AUnitThatTheHostCannotConvertIsNotShown) {
  connect();
  messenger->converter->userUnits["x"] = "Nm";
  offline(kTemperature);
  EXPECT_EQ(edit().displayUnit(), "degC");
  offline(R"(name="x" type="floatVal" value="3.5" unit="%Cs")");
  EXPECT_EQ(edit().displayUnit(), "%Cs");
}

TEST_F(CtrTextEditTest, AnAnswerMayBearAnotherUnit) {
  connect();
  offline(kTemperature);
  edit().SetOnlineData(itemNode("x", "floatVal", "68", "unit=\"degF\""));
  EXPECT_EQ(edit().stored(), "20");
  EXPECT_EQ(edit().Text(), "20.0");
  edit().SetOnlineData(itemNode("x", "floatVal", "22", "unit=\"degC\""));
  edit().SetOnlineData(itemNode("x", "floatVal", "22", "unit=\"noUnit\""));
  edit().SetOnlineData(itemNode("x", "floatVal", "22", "unit=\"\""));
  EXPECT_EQ(edit().stored(), "22");
  edit().SetOnlineData(itemNode("x", "floatVal", "23", "unit=\"Nm\""));
  EXPECT_EQ(edit().stored(), "23") << "what cannot be converted is taken as it is";
  edit().SetOnlineData(itemNode("x", "floatVal", "NaN", "unit=\"degF\""));
  EXPECT_EQ(edit().Text(), "NaN");
}

TEST_F(CtrTextEditTest, AFailingConverterIsReportedUnderTheEditsName) {
  connect();
  offline(kTemperature);
  calls.fail("GetUnitConverter");
  messenger->announce("CtrTextEdit mMessenger_ViewSetUnits: ", 440);
  fahrenheit();
  EXPECT_EQ(edit().Text(), "20.0");
  messenger->raiseUnits();
  EXPECT_EQ(edit().Text(), "68.0");
}

// A value is what it was, however often the user changes units and locale, whether he edited it or not.
TEST_F(CtrTextEditTest, UnitsAndLocalesNeverChangeAValue) {
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

// --- relations

struct ValueRelationTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("lower"), "ctr_lower")
        .row(at.make<CtrTextEdit>("upper"), "ctr_upper")
        .row(at.make<CtrTextEdit>("other"), "ctr_other");
  });
  CtrTextEdit& lower = view->get<CtrTextEdit>("lower");
  CtrTextEdit& upper = view->get<CtrTextEdit>("upper");
  CtrTextEdit& other = view->get<CtrTextEdit>("other");

  ValueRelationTest() {
    load(lower, "2");
    load(upper, "4");
    load(other, "10");
  }
  static void load(CtrTextEdit& edit, const std::string& value) {
    edit.setOfflineData(parameterNode("name=\"any\" type=\"floatVal\" unit=\"Nm\" value=\"" + value + "\""));
  }
};

TEST_F(ValueRelationTest, TheUpperStaysAboveTheLowerByTheMargin) {
  upper.AddValueRelation(lower, "max", 0);
  EXPECT_TRUE(upper.Correct());
  upper.type("2");
  EXPECT_TRUE(upper.Correct()) << "just the margin";
  upper.type("1.9");
  EXPECT_FALSE(upper.Correct());
  EXPECT_TRUE(lower.Correct()) << "the lower one is not blamed";
  upper.AddValueRelation(lower, "max", 1);
  upper.type("2.9");
  EXPECT_FALSE(upper.Correct()) << "told again, the margin is replaced";
  upper.type("3");
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, AMarginIsHeldAtOnce) {
  upper.AddValueRelation(lower, "max", 3);
  EXPECT_FALSE(upper.Correct());
  upper.AddValueRelation(lower, "max", 2);
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, EveryChangeOfTheLowerIsFelt) {
  upper.AddValueRelation(lower, "max", 0);
  lower.type("5");
  EXPECT_FALSE(upper.Correct());
  lower.restore();
  EXPECT_TRUE(upper.Correct());
  lower.SetOnlineData(itemNode("any", "floatVal", "6"));
  EXPECT_FALSE(upper.Correct());
  load(lower, "1");
  EXPECT_TRUE(upper.Correct());
  lower.Text("9");
  EXPECT_FALSE(upper.Correct());
  lower.Text("");
  EXPECT_TRUE(upper.Correct()) << "what is no number bounds nothing";
}

TEST_F(ValueRelationTest, UnitsOnTheScreenDoNotMatter) {
  upper.SetMessenger(messenger);
  messenger->converter->userUnits["any"] = "ftlbf";
  messenger->raiseUnits();
  EXPECT_EQ(upper.displayUnit(), "ftlbf");
  upper.AddValueRelation(lower, "max", 1);
  upper.type("2.3");  // 3.12 Nm
  EXPECT_TRUE(upper.Correct());
  upper.type("2.2");  // 2.98 Nm
  EXPECT_FALSE(upper.Correct());
}

TEST_F(ValueRelationTest, CanBeClearedAtEitherEnd) {
  upper.AddValueRelation(lower, "max", 5);
  EXPECT_FALSE(upper.Correct());
  lower.ClearValueRelations();
  EXPECT_TRUE(upper.Correct());
  upper.AddValueRelation(lower, "max", 5);
  upper.AddValueRelation(other, "max", 0);
  upper.ClearValueRelations();
  EXPECT_TRUE(upper.Correct());
  lower.type("100");
  EXPECT_TRUE(upper.Correct());
  upper.ClearValueRelations();
}

TEST_F(ValueRelationTest, AnUnknownRelationIsAnError) {
  EXPECT_THROW(upper.AddValueRelation(lower, "min", 0), RuntimeError);
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, EitherEndMayEndFirst) {
  VirtualDesktop own;
  auto made = TestView::place(own, [](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<CtrTextEdit>("a"), "ctr_a").row(at.make<CtrTextEdit>("b"), "ctr_b");
  });
  made->get<CtrTextEdit>("a").AddValueRelation(lower, "max", 0);
  upper.AddValueRelation(made->get<CtrTextEdit>("b"), "max", 0);
  load(made->get<CtrTextEdit>("b"), "9");
  EXPECT_FALSE(upper.Correct());
  made = nullptr;
  lower.type("3");
  upper.type("5");
  EXPECT_TRUE(upper.Correct());
}

}  // namespace
}  // namespace ostrand
