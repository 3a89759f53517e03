#include <algorithm>
#include <random>

#include "AnyEditBench.h"
#include "anyedit/NumberMask.h"
#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

// What holds after any sequence of documents, typing, units and languages. The sequences are the same in every run; a failure
// tells the steps that led to it.
namespace ostrand {
namespace {

using namespace test;

constexpr const char* kUnits[] = {"Nm", "kNm", "ftlbf"};

struct AnyEditPropertyTest : AnyEditBench {
  std::mt19937 random{20260105};
  std::string steps;
  Document data = dataSet(torque("a", "1"));

  int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
  const char* anyUnit() { return kUnits[below(3)]; }
  // Numbers of all lengths within the limits and beyond them, and what is none.
  std::string anyText() {
    static const char* const kOthers[] = {"", "NaN", "x", "1.2.3", "-0.5", "12,75", "1E-2", " 4 "};
    if (below(4) == 0) return kOthers[below(8)];
    std::string text = std::to_string(below(13));
    if (const int digits = below(6)) {
      text += '.';
      for (int i = 0; i < digits; ++i) text += static_cast<char>('0' + below(10));
    }
    return text;
  }
  void step(const std::string& what) { steps += what + "\n"; }

  void type(const std::string& text) {
    step("type " + text);
    any().VerifyEdit("a", text);
  }
  void chooseUnit(const std::string& unit) {
    step("unit " + unit);
    units("a", unit);
  }
  void doAnything() {
    const std::string text = anyText();
    switch (below(8)) {
      case 0:
      case 1: type(text); break;
      case 2: chooseUnit(anyUnit()); break;
      case 3: {
        const char* const unit = anyUnit();
        step("online " + text + " " + unit);
        any().SetOnlineData(read("a", text, unit));
        break;
      }
      case 4:
        step("offline " + text);
        any().SetOfflineData(dataSet(torque("a", text, below(2) ? "synchronised=\"1\"" : "synchronised=\"0\"")));
        break;
      case 5:
        step("import " + text);
        any().SetImportData(dataSet(parameterXml("sample1a", text)));
        break;
      case 6:
        step("localize");
        any().Localize(messenger->textTable);
        break;
      default: step("locale"); desktop.setLocale(below(2) ? "fi" : "en");
    }
  }
  // Calls `check` in a thousand states.
  template <class Check>
  void inAnyState(Check check) {
    for (int run = 0; run < 100; ++run) {
      steps.clear();
      any().AddAny("a");
      data = dataSet(torque("a", "1"));
      any().SetOfflineData(data);
      for (int i = 0; i < 10; ++i) {
        doAnything();
        check();
        if (HasFailure()) FAIL() << steps;
      }
      view->Terminate();
      messenger->converter->userUnits.clear();
      desktop.setLocale("en");
      place();
    }
  }
};

TEST_F(AnyEditPropertyTest, EveryWayThroughTheUnitsBringsTheTextBack) {
  inAnyState([&] {
    // An empty text has left its unit behind; it is the user's from here on.
    const std::string own = anyUnit();
    chooseUnit(own);
    const std::string before = any().Text("a");
    for (int i = below(4); i >= 0; --i) chooseUnit(anyUnit());
    chooseUnit(own);
    // A wrong number that came in another unit stands there in all its digits until the units change.
    const auto told = [&](const std::string& text) { return any().Correct("a") ? text : masked(text, "######0.000", '.'); };
    EXPECT_EQ(told(any().Text("a")), told(before));
  });
}

TEST_F(AnyEditPropertyTest, WhatTheDeviceHasSentIsThereInItsOwnUnit) {
  inAnyState([&] {
    const std::string unit = anyUnit(), value = std::to_string(below(10)) + "." + std::to_string(100 + below(900));
    step("online " + value + " " + unit);
    any().SetOnlineData(read("a", value, unit));
    for (int i = below(3); i > 0; --i) chooseUnit(anyUnit());
    chooseUnit(unit);
    const std::string shown = any().Text("a");
    EXPECT_EQ(parseNumber(shown, '.'), parseNumber(value, '.')) << shown;
  });
}

TEST_F(AnyEditPropertyTest, NoDigitOfWhatWasTypedIsLost) {
  inAnyState([&] {
    const std::string typed = anyText();
    type(typed);
    const std::string told = withSeparator(typed, ',', '.'), text = any().Text("a");
    const bool isNumber = parseNumber(told, '.').has_value();
    if (isNumber && any().Correct("a"))
      EXPECT_EQ(text, masked(told, "######0.000", '.'));
    else
      EXPECT_TRUE(text == typed || text == told) << text;
    type(text);
    EXPECT_EQ(any().Text("a"), text) << "typed once more";
  });
}

TEST_F(AnyEditPropertyTest, LanguageAndLocaleChangeNoText) {
  inAnyState([&] {
    const std::string text = any().Text("a"), tip = any().ToolTipText("a");
    for (const char* name : {"fi", "sv", "de", "en"}) {
      desktop.setLocale(name);
      any().Localize(messenger->textTable);
    }
    EXPECT_EQ(any().Text("a"), text);
    EXPECT_EQ(any().ToolTipText("a"), tip);
  });
}

TEST_F(AnyEditPropertyTest, TheParameterOfTheHostIsNeverTouched) {
  inAnyState([&] { EXPECT_EQ(parameterAnywhere(data, "a").attribute("value"), "1"); });
}

TEST_F(AnyEditPropertyTest, TheMarksAndTheWordTellTheItem) {
  inAnyState([&] {
    type(any().Text("a"));
    EXPECT_EQ(any().Correct(""), any().Correct("a"));
    EXPECT_EQ(any().Modified(""), any().Modified("a"));
    // A value that is wrong as it came is "original" until it is edited.
    if (any().editWord() == EditWord::kEditedError) {
      EXPECT_FALSE(any().Correct("a"));
    }
    if (any().Modified("a")) {
      EXPECT_EQ(any().editWord() == EditWord::kEditedError, !any().Correct("a")) << any().editWord();
    }
    EXPECT_EQ(any().GetXmlItem(false) != Node(), any().Correct("a"));
  });
}

}  // namespace
}  // namespace ostrand
