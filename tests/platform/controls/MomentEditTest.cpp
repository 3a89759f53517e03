#include "platform/controls/MomentEdit.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrTimeEdit.h"
#include "support/ControlBench.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;

template <class T>
struct MomentBench : ControlBench<T> {
  using ControlBench<T>::edit;
  void offline(const std::string& value, const std::string& rest = {}) {
    edit().setOfflineData(parameterNode("name=\"x\" type=\"stringVal\" value=\"" + value + "\" " + rest));
  }
  std::string sent() { return edit().GetXmlItem(true).child("stringVal").text(); }
};

using CtrDateEditTest = MomentBench<CtrDateEdit>;
using CtrTimeEditTest = MomentBench<CtrTimeEdit>;

struct Form4 {
  const char* locale;
  const char* shown;
};

TEST_F(CtrDateEditTest, ShowsAndTakesTheLocalesShortDate) {
  for (const auto& [locale, shown] : {Form4{"en", "11/4/2025"}, {"de", "04.11.2025"}, {"fi", "4.11.2025"}, {"sv", "2025-11-04"}}) {
    desktop.setLocale(locale);
    offline("2025-11-04");
    EXPECT_EQ(edit().Text(), shown);
    EXPECT_TRUE(edit().Correct());
    edit().type("2024-02-29");
    EXPECT_TRUE(edit().Modified() && edit().Correct());
    EXPECT_EQ(sent(), "2024-02-29") << "the standard form can be typed everywhere";
    edit().type(shown);
    EXPECT_FALSE(edit().Modified()) << locale;
    EXPECT_EQ(sent(), "2025-11-04");
  }
}

TEST_F(CtrTimeEditTest, ShowsAndTakesTheLocalesLongTime) {
  for (const auto& [locale, shown] : {Form4{"en", "3:04:05 PM"}, {"de", "15:04:05"}, {"fi", "15.04.05"}, {"sv", "15:04:05"}}) {
    desktop.setLocale(locale);
    offline("15:04:05");
    EXPECT_EQ(edit().Text(), shown);
    EXPECT_TRUE(edit().Correct());
    edit().type("08:00");
    EXPECT_TRUE(edit().Modified() && edit().Correct());
    EXPECT_EQ(sent(), "08:00:00");
    edit().type(shown);
    EXPECT_FALSE(edit().Modified()) << locale;
    edit().type("24:00");
    EXPECT_FALSE(edit().Correct());
  }
}

TEST_F(CtrDateEditTest, WhatCannotBeReadStaysAsTypedAndIsWrong) {
  connect();
  offline("2025-11-04");
  edit().type("31.2.2025");
  EXPECT_EQ(edit().Text(), "31.2.2025");
  EXPECT_FALSE(edit().Correct());
  EXPECT_EQ(sent(), "31.2.2025");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")", R"(SetParameterStatus "x" "editedError")"));
  edit().type("");
  EXPECT_TRUE(edit().Correct()) << "no date is a value too";
  edit().restore();
  EXPECT_EQ(edit().Text(), "11/4/2025");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrDateEditTest, AnotherLocaleDoesNotChangeTheValue) {
  offline("2025-11-04");
  edit().type("12/31/2025");
  desktop.setLocale("fi");
  edit().Localize(nullptr);
  EXPECT_EQ(edit().Text(), "31.12.2025");
  EXPECT_EQ(sent(), "2025-12-31");
  edit().restore();
  EXPECT_EQ(edit().Text(), "4.11.2025");
}

TEST_F(CtrDateEditTest, AnotherLocaleDoesNotMakeAWrongDateRight) {
  offline("2025-11-04");
  edit().type("31/12/2025");
  EXPECT_FALSE(edit().Correct()) << "there is no month 31";
  desktop.setLocale("fi");
  edit().Localize(nullptr);
  EXPECT_FALSE(edit().Correct()) << "the document would get it as it was typed";
  EXPECT_EQ(edit().Text(), "31/12/2025");
}

TEST_F(CtrDateEditTest, ADateOfADocumentMeansTheSameInEveryLocale) {
  for (const char* locale : {"en", "fi", "sv", "de"}) {
    desktop.setLocale(locale);
    offline("05/01/2026");
    EXPECT_EQ(edit().Text(), desktop.locale().date(desktop.now())) << locale;
  }
  offline("soon");
  EXPECT_EQ(edit().Text(), "soon");
  EXPECT_FALSE(edit().Correct());
  offline("");
  EXPECT_TRUE(edit().Correct());
}

TEST_F(CtrDateEditTest, FollowsTheDocuments) {
  offline("2025-11-04", "offlineValue=\"2025-12-24\"");
  EXPECT_EQ(edit().Text(), "12/24/2025");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), "2025-12-24");
  edit().SetOnlineData(itemNode("x", "stringVal", "2026-01-02"));
  EXPECT_EQ(edit().Text(), "1/2/2026");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().syncWord(), "sync");
  edit().handleError("communicationError");
  EXPECT_EQ(edit().Error(), "communicationError");
  EXPECT_EQ(edit().syncWord(), "syncError");
}

TEST_F(CtrTimeEditTest, ATextSetByCodeIsNoEdit) {
  offline("15:04:05");
  edit().Text("16:00");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().Text(), "4:00:00 PM");
  EXPECT_EQ(sent(), "16:00:00");
  edit().Enabled(false);
  EXPECT_THROW(edit().type("1:00"), RuntimeError);
}

}  // namespace
}  // namespace ostrand
