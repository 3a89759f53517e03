#include "platform/controls/CtrTextEdit.h"

#include "platform/base/RuntimeError.h"
#include "support/ErrorOf.h"
#include "support/TextEditBench.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

using CtrTextEditTest = TextEditBench;

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
    EXPECT_EQ(sent(false), item(text));
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
  edit().type("4.2561");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().Text(), "4.26");
  EXPECT_EQ(sent(), item("4.2561")) << "and the stored digits are whole again";
}

// Else a value could never be written that the screen cannot tell from the stored one.
TEST_F(CtrTextEditTest, ANumberIsAnEditWhenItDiffersThoughItIsShownTheSame) {
  connect();
  offlineFloat("3.456", "decimals=\"2\"");
  EXPECT_EQ(edit().Text(), "3.46");
  take();
  edit().type("3.46");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(edit().Text(), "3.46");
  EXPECT_EQ(sent(), item("3.46"));
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  messenger->raiseGetChanges(2);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "x" "3.456" "3.46" "noUnit" "floatVal" "")"));
  edit().restore();
  EXPECT_EQ(sent(), item("3.456"));

  offlineFloat("1.5", "decimals=\"0\"");
  edit().type("2");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), item("2"));
  offlineFloat("2", "decimals=\"2\"");
  edit().type("2.001");
  EXPECT_EQ(edit().Text(), "2.00");
  EXPECT_FALSE(edit().Modified()) << "what the screen makes of it is the stored value";
  for (const char* same : {"2", "2.00", "2,0", "+2", "2e0", " 2 "}) {
    edit().type(same);
    EXPECT_FALSE(edit().Modified()) << same;
    EXPECT_EQ(sent(), item("2"));
  }
}

TEST_F(CtrTextEditTest, InAnotherUnitTheNumberOfTheDataUnitCounts) {
  connect();
  messenger->converter->userUnits["x"] = "ftlbf";
  offline(R"(name="x" type="floatVal" value="1" unit="Nm" decimals="2")");
  EXPECT_EQ(edit().Text(), "0.74");
  edit().type("0.74");
  EXPECT_TRUE(edit().Modified()) << "0.74 ftlbf are no 1 Nm";
  edit().type("1 Nm");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(sent(), item("1", "floatVal", "Nm"));
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

TEST_F(CtrTextEditTest, ATextSetByCodeLeavesTheMarkAsItWas) {
  connect();
  offline(kTemperature);
  edit().type("30.4");
  take();
  edit().Text("30");
  EXPECT_TRUE(edit().Modified()) << "rounded by its view, it is what the user wants";
  EXPECT_EQ(sent(), item("30", "floatVal", "degC"));
  EXPECT_THAT(take(), IsEmpty());
  edit().Text("20.0");
  EXPECT_FALSE(edit().Modified()) << "the stored value";
  EXPECT_EQ(edit().Text(), "20.0");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "original")"));
  edit().type("30.4");
  edit().Text("");
  EXPECT_FALSE(edit().Modified()) << "what code has emptied is not sent";
  EXPECT_TRUE(edit().Correct());
  edit().Modified(true);
  EXPECT_TRUE(edit().Modified()) << "until it says otherwise";
  edit().Text("");
  EXPECT_FALSE(edit().Modified());
}

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
  EXPECT_EQ(edit().Text(), "23 Nm") << "what cannot be converted is shown as the device told it";
  EXPECT_FALSE(edit().Correct());
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

TEST_F(CtrTextEditTest, ANumberMayStandBetweenTabsAndLineBreaks) {
  offlineFloat("&#9;4.25&#10;", "decimals=\"1\"");
  EXPECT_EQ(edit().Text(), "4.3");
  EXPECT_EQ(edit().stored(), "4.25");
  edit().SetOnlineData(itemNode("x", "floatVal", "\r\n\t\t5.75\r\n\t"));
  EXPECT_EQ(edit().Text(), "5.8");
  EXPECT_EQ(sent(), item("5.75"));
  edit().type("5.75");
  EXPECT_FALSE(edit().Modified());
}

}  // namespace
}  // namespace ostrand
