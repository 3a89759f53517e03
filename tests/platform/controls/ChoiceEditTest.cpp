#include "platform/controls/ChoiceEdit.h"

#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrOptionEdit.h"
#include "support/ControlBench.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRecipes = choice("1", "recipe1") + choice("2", "recipe2") + choice("3", "recipe3");

template <class T>
struct ChoiceBench : ControlBench<T> {
  using ControlBench<T>::edit;
  void offline(const std::string& value, const std::string& rest = "type=\"integerVal\"") {
    edit().setOfflineData(parameterNode("name=\"x\" value=\"" + value + "\" " + rest));
  }
  void mapped(const std::string& value) {
    edit().SetMappings(mappingNode(kRecipes));
    offline(value);
  }
  void online(const std::string& value, const char* element = "integerVal") { edit().SetOnlineData(itemNode("x", element, value)); }
  std::string sent() {
    const Node item = edit().GetXmlItem(true);
    return std::string(item.firstChild().name()) + " " + item.text();
  }
};

using CtrComboEditTest = ChoiceBench<CtrComboEdit>;
using CtrOptionEditTest = ChoiceBench<CtrOptionEdit>;
using CtrCheckEditTest = ChoiceBench<CtrCheckEdit>;

// --- what code sets

TEST_F(CtrOptionEditTest, WhatFollowsAReadValueIsNoEdit) {
  mapped("1");
  edit().follow("recipe2");
  EXPECT_EQ(edit().Text(), "recipe2");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(sent(), "integerVal 1") << "the device's own value";
}

TEST_F(CtrOptionEditTest, WhatFollowsAnEditStaysOneUntilItIsTheStoredValue) {
  mapped("1");
  edit().Text("recipe2");
  edit().follow("recipe3");
  EXPECT_TRUE(edit().Modified());
  edit().follow("recipe1");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrOptionEditTest, KnowsWhatTheControlsThatShowItStandFor) {
  mapped("1");
  edit().SetOptionValues({"pulpType", "polynome"});
  EXPECT_THAT(edit().optionValues(), ElementsAre("pulpType", "polynome"));
  edit().Text("polynome");
  EXPECT_FALSE(edit().Correct()) << "the data set does not know it";
}

// --- key and value

TEST_F(CtrComboEditTest, TextIsTheKeyAndTheValueTravels) {
  mapped("2");
  EXPECT_EQ(edit().Text(), "recipe2");
  EXPECT_TRUE(edit().Correct());
  EXPECT_EQ(sent(), "integerVal 2");
  edit().choose("recipe3");
  EXPECT_EQ(edit().Text(), "recipe3");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), "integerVal 3");
  edit().choose("recipe2");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrComboEditTest, ADeviceMayTellTheSameNumberInAnotherForm) {
  mapped("1");
  online("2.0", "floatVal");
  EXPECT_EQ(edit().Text(), "recipe2");
  EXPECT_EQ(edit().stored(), "2.0");
  EXPECT_TRUE(edit().Correct());
  edit().choose("recipe3");
  edit().choose("recipe2");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrComboEditTest, AnUnknownValueShowsRawAndIsNotCorrect) {
  mapped("7");
  EXPECT_EQ(edit().Text(), "7");
  EXPECT_FALSE(edit().Correct());
  EXPECT_EQ(sent(), "integerVal 7");
}

TEST_F(CtrComboEditTest, NothingChosenIsNotCorrect) {
  EXPECT_FALSE(edit().Correct()) << "before any document";
  mapped("");
  EXPECT_EQ(edit().Text(), "");
  EXPECT_FALSE(edit().Correct());
  edit().choose("recipe1");
  EXPECT_TRUE(edit().Correct());
}

TEST_F(CtrComboEditTest, WithoutAMappingTheRawTextPasses) {
  edit().SetMappings(Node());
  offline("4711");
  EXPECT_EQ(edit().Text(), "4711");
  EXPECT_TRUE(edit().Correct());
  edit().choose("4712");
  EXPECT_EQ(sent(), "integerVal 4712");
  EXPECT_TRUE(edit().choices().empty());
}

TEST_F(CtrComboEditTest, OnlyMappedItemsAreChoices) {
  edit().SetMappings(mappingNode(choice("1", "a") + "<data:note value=\"2\" key=\"b\"/>" + "<data:mappedItem/>"));
  ASSERT_EQ(edit().choices().size(), 2u);
  EXPECT_EQ(edit().choices()[0].key, "a");
  EXPECT_EQ(edit().choices()[1].key, "");
  EXPECT_EQ(edit().get("Count", {}), Value(2));
}

TEST_F(CtrComboEditTest, TheUserCannotChooseWhatIsNotOffered) {
  mapped("1");
  EXPECT_EQ(errorOf([&] { edit().choose("recipe9"); }), 5);
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().choose("recipe2"); }), 70);
  edit().Enabled(true);
  edit().ReadOnly(true);
  EXPECT_EQ(errorOf([&] { edit().choose("recipe2"); }), 70);
  EXPECT_EQ(edit().Text(), "recipe1");
}

TEST_F(CtrComboEditTest, IsShownInTheUsersLanguage) {
  connect();
  mapped("2");
  EXPECT_EQ(edit().displayText(), "recipe2");
  edit().Localize(messenger->textTable);
  EXPECT_EQ(edit().displayText(), "L:recipe2");
  EXPECT_EQ(edit().Text(), "recipe2");
  EXPECT_EQ(edit().label("recipe1"), "L:recipe1");
  EXPECT_EQ(edit().label(""), "");
}

TEST_F(CtrComboEditTest, AnOfflineValueComesBackAsAnEdit) {
  connect();
  edit().SetMappings(mappingNode(kRecipes));
  offline("1", "type=\"integerVal\" offlineValue=\"3\"");
  EXPECT_EQ(edit().Text(), "recipe3");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), "integerVal 3");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  messenger->raiseGetChanges(2);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "x" "1" "3" "noUnit" "integerVal" "")"));
  edit().restore();
  EXPECT_EQ(edit().Text(), "recipe1");
}

TEST_F(CtrComboEditTest, MarkedAsNotEditedTheChoiceIsTheStoredOne) {
  mapped("1");
  edit().choose("recipe3");
  edit().MarkEdited(false);
  EXPECT_EQ(edit().stored(), "3");
  EXPECT_FALSE(edit().Modified());
  edit().choose("recipe1");
  EXPECT_TRUE(edit().Modified());
}

TEST_F(CtrComboEditTest, ChangesUnitsAndLanguageWithoutChangingTheValue) {
  connect();
  mapped("2");
  edit().choose("recipe3");
  take();
  messenger->raiseUnits();
  desktop.setLocale("fi");
  edit().Localize(messenger->textTable);
  EXPECT_EQ(edit().Text(), "recipe3");
  EXPECT_TRUE(edit().Modified());
  EXPECT_THAT(take(), IsEmpty());
}

// --- filter

TEST_F(CtrComboEditTest, AFilterComesIntoForceWhenApplied) {
  mapped("2");
  edit().SetAllItemsAllowed(false);
  edit().SetItemAllowed("recipe1", true);
  edit().SetItemAllowed("unknown", true);
  EXPECT_EQ(edit().get("Count", {}), Value(3));
  EXPECT_TRUE(edit().Correct());
  edit().ApplyItemFilter();
  EXPECT_EQ(edit().get("Count", {}), Value(1));
  EXPECT_EQ(edit().Text(), "recipe2") << "what is no longer offered stays on the screen";
  EXPECT_FALSE(edit().Correct());
  EXPECT_EQ(errorOf([&] { edit().choose("recipe3"); }), 5);
  edit().choose("recipe1");
  EXPECT_TRUE(edit().Correct());
  edit().SetAllItemsAllowed(true);
  edit().ApplyItemFilter();
  EXPECT_EQ(edit().get("Count", {}), Value(3));
}

TEST_F(CtrComboEditTest, AFilterOutlivesANewReadingOfTheSameChoices) {
  mapped("1");
  edit().SetAllItemsAllowed(false);
  edit().SetItemAllowed("recipe1", true);
  edit().ApplyItemFilter();
  mapped("1");
  EXPECT_EQ(edit().get("Count", {}), Value(1));
  edit().SetMappings(mappingNode(kRecipes + choice("4", "recipe4")));
  EXPECT_EQ(edit().get("Count", {}), Value(4)) << "other choices begin without a filter";
  edit().SetMappings(mappingNode(choice("1", "recipe1") + choice("3", "recipe2") + choice("2", "recipe3")));
  EXPECT_EQ(edit().get("Count", {}), Value(3));
}

// --- events

TEST_F(CtrOptionEditTest, ChangeIsRaisedOnChangeOnly) {
  std::vector<std::string> heard;
  edit().Change.connect([&](const std::string& text) { heard.push_back(text); });
  mapped("1");
  mapped("1");
  online("1");
  online("1.0", "floatVal");
  edit().choose("recipe1");
  edit().Text("recipe1");
  EXPECT_THAT(heard, ElementsAre("recipe1"));
  edit().choose("recipe2");
  edit().Text("recipe3");
  online("2");
  edit().setOfflineData(Node());
  EXPECT_THAT(heard, ElementsAre("recipe1", "recipe2", "recipe3", "recipe2", ""));
}

TEST_F(CtrOptionEditTest, AChoiceMadeByCodeCountsAsAnEdit) {
  connect();
  offline("grade1", "type=\"stringVal\"");
  edit().Text("grade2");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), "stringVal grade2");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  edit().Text("grade1");
  EXPECT_FALSE(edit().Modified());
}

TEST_F(CtrOptionEditTest, AChoiceByCodeThatThereIsNotIsNotCorrect) {
  connect();
  mapped("1");
  edit().Text("recipe9");
  EXPECT_FALSE(edit().Correct());
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")", R"(SetParameterStatus "x" "editedError")"));
}

// --- check edits

TEST_F(CtrCheckEditTest, OffIsTheChoiceOfValueZero) {
  edit().SetMappings(mappingNode(choice("1", "enabled") + choice("0", "disabled")));
  offline("0");
  EXPECT_FALSE(edit().Value());
  EXPECT_EQ(edit().Text(), "disabled");
  edit().click();
  EXPECT_TRUE(edit().Value());
  EXPECT_EQ(edit().Text(), "enabled");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(sent(), "integerVal 1");
  edit().click();
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().get("Value", {}), Value(false));
}

TEST_F(CtrCheckEditTest, WithoutAMappingZeroAndOne) {
  EXPECT_FALSE(edit().Value());
  offline("1");
  EXPECT_TRUE(edit().Value());
  edit().click();
  EXPECT_EQ(sent(), "integerVal 0");
  online("0.0", "floatVal");
  EXPECT_FALSE(edit().Value());
  edit().click();
  EXPECT_EQ(sent(), "integerVal 1");
}

TEST_F(CtrCheckEditTest, CannotBeClickedWhenOutOfReach) {
  offline("1", "type=\"integerVal\" access=\"read\"");
  EXPECT_EQ(errorOf([&] { edit().click(); }), 70);
  EXPECT_TRUE(edit().Value());
}

}  // namespace
}  // namespace ostrand
