#include "core/modTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/base/RuntimeError.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"

namespace ostrand::modTools {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct modToolsTest : testing::Test {
  VirtualDesktop desktop;
  std::vector<std::string> traces;
  modToolsTest() {
    desktop.onDebugOutput = [this](const std::string& text) { traces.push_back(text); };
  }
};

TEST_F(modToolsTest, ANumberOfADocumentHasAPointInEveryLocale) {
  for (const char* name : {"en", "fi", "sv", "de"}) {
    desktop.setLocale(name);
    EXPECT_EQ(ToLocalNumber("1.5", desktop.locale()), 1.5) << name;
    EXPECT_EQ(ToLocalNumber("-0.25E2", desktop.locale()), -25.0) << name;
    EXPECT_EQ(ToDocumentNumber(1.5, desktop.locale()), "1.5") << name;
    EXPECT_EQ(ToDocumentNumber(-1e-7, desktop.locale()), "-1E-07") << name;
  }
}

TEST_F(modToolsTest, ATextThatIsNoNumberIsAnErrorOfTheCaller) {
  for (const char* text : {"", "NaN", "-Inf", "1 000.5", "one", "1.5.2"}) {
    try {
      ToLocalNumber(text, desktop.locale());
      ADD_FAILURE() << text;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 13) << text;
    }
  }
  EXPECT_THAT(traces, IsEmpty()) << "the number routines have no trap";
}

TEST_F(modToolsTest, ANumberMayStandBetweenTabsAndLineBreaks) {
  for (const char* locale : {"en", "de"}) {
    desktop.setLocale(locale);
    EXPECT_EQ(ToLocalNumber("\n\t4.25\r\n", desktop.locale()), 4.25) << locale;
  }
}

TEST_F(modToolsTest, StampsAreCutByPosition) {
  EXPECT_EQ(StandardizeDatafileDate("31/12/2020 23:59:59"), "2020-12-31 23:59:59");
  EXPECT_EQ(StandardizeDatafileDate("31.12.2020x23.59.59"), "2020-12-31 23.59.59");
  EXPECT_EQ(StandardizeDatafileDate("31-12-2020 of 23:59:59"), "2020-12-31 23:59:59") << "the last eight characters";
  EXPECT_EQ(StandardizeDatafileDate("31·12·2020—23:59:59"), "2020-12-31 23:59:59") << "characters of two bytes, and of three";
  EXPECT_EQ(StandardizeDatafileDate("31年12月2020 23·59·59"), "2020-12-31 23·59·59");
  EXPECT_EQ(StandardizeDatafileDate("31/12"), "-12-31 31/12");
  EXPECT_EQ(StandardizeDatafileDate(""), "-- ");
  EXPECT_THAT(traces, IsEmpty());
}

TEST_F(modToolsTest, LocalizesAStampToShortDateAndLongTime) {
  for (const auto& [locale, text] :
       {std::pair{"en", "12/31/2020 11:59:59 PM"}, {"de", "31.12.2020 23:59:59"}, {"fi", "31.12.2020 23.59.59"}, {"sv", "2020-12-31 23:59:59"}}) {
    desktop.setLocale(locale);
    EXPECT_EQ(LocalizeDatafileDate("31/12/2020 23:59:59", desktop), text);
    EXPECT_EQ(LocalizeDatafileDate("31·12·2020·23:59:59", desktop), text);
  }
}

TEST_F(modToolsTest, WhatIsNoDateGivesAnEmptyTextAndATrace) {
  EXPECT_EQ(LocalizeDatafileDate("", desktop), "");
  EXPECT_EQ(LocalizeDatafileDate("32/12/2020 23:59:59", desktop), "");
  EXPECT_THAT(traces, ElementsAre(testing::StartsWith("DTM GUI modTools LocalizeDatafileDate error 13: "),
                                  testing::StartsWith("DTM GUI modTools LocalizeDatafileDate error 13: ")));
}

TEST_F(modToolsTest, TracesGoToTheDebugOutput) {
  DebugTrace(desktop, "DTM GUI", "StandardizeDatafileDate", 5, "bad argument");
  EXPECT_THAT(traces, ElementsAre("DTM GUI StandardizeDatafileDate error 5: bad argument"));
  DropTrace("nobody hears");
  EXPECT_EQ(traces.size(), 1u);
}

TEST_F(modToolsTest, ThePresentIsWrittenAsTheUserWritesIt) {
  desktop.advance(61);
  EXPECT_EQ(presentDateAndTime(desktop), "1/5/2026 8:01:01 AM");
  desktop.setLocale("fi");
  EXPECT_EQ(presentDateAndTime(desktop), "5.1.2026 8.01.01");
}

TEST_F(modToolsTest, TheHomeGroupOfAParameter) {
  const auto in = [](const char* group, const char* parameter, const char* clone = nullptr) {
    return std::string("<data:requestGroup name=\"") + group + "\"><data:includedParam name=\"" + parameter + "\"" +
           (clone ? std::string(" clone=\"") + clone + "\"" : "") + "/></data:requestGroup>";
  };
  const Document doc =
      dataSet("", "",
              in("g1", "only", "1") + in("g1", "two", "1") + in("g2", "two") + in("g1", "zero", "1") + in("g2", "zero", "0") + in("g3", "zero") +
                  in("g1", "clones", "1") + in("g2", "clones", "2") + in("g1", "empty", "1") + in("g2", "empty", ""));
  EXPECT_EQ(groupOfParameter(doc, "only"), "g1") << "its only group, clone or not";
  EXPECT_EQ(groupOfParameter(doc, "two"), "g2");
  EXPECT_EQ(groupOfParameter(doc, "zero"), "g2") << "the first without a clone, or with 0";
  EXPECT_EQ(groupOfParameter(doc, "clones"), "") << "past the end there is nothing, in silence";
  EXPECT_EQ(groupOfParameter(doc, "empty"), "");
  EXPECT_EQ(groupOfParameter(doc, "absent"), "");
}

}  // namespace
}  // namespace ostrand::modTools
