#include "platform/controls/EditControl.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/types/Query.h"
#include "support/ControlBench.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct EditControlTest : ControlBench<CtrTextEdit> {
  void offline(
      const std::string& attributes = R"(name="x" type="floatVal" value="20" unit="degC" decimals="1" minVal="0" maxVal="100" access="readWrite")") {
    edit().setOfflineData(parameterNode(attributes));
    take();
  }
  void changes(int mode) { messenger->raiseGetChanges(mode); }
};

TEST_F(EditControlTest, BeginsEmptyOriginalAndNotRead) {
  EXPECT_EQ(edit().Text(), "");
  EXPECT_FALSE(edit().Modified());
  EXPECT_TRUE(edit().Correct());
  EXPECT_FALSE(edit().HasParameter());
  EXPECT_FALSE(edit().KeepLocal() || edit().ExplicitApply() || edit().ReadOnly());
  EXPECT_EQ(edit().Error(), "");
  EXPECT_EQ(edit().editWord(), "original");
  EXPECT_EQ(edit().syncWord(), "notRead");
}

// --- words

TEST_F(EditControlTest, TellsTheEditWordOnChangeOnly) {
  connect();
  offline();
  edit().type("21");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "edited")"));
  edit().type("22");
  EXPECT_THAT(take(), IsEmpty());
  edit().type("300");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "editedError")"));
  edit().type("301");
  EXPECT_THAT(take(), IsEmpty());
  edit().type("30");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "corrected")"));
  edit().type("20");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "original")"));
}

TEST_F(EditControlTest, AReadBringsTheStoredValueAndTheWordBack) {
  connect();
  offline();
  edit().type("30");
  take();
  edit().SetOnlineData(itemNode("x", "floatVal", "25"));
  EXPECT_EQ(edit().Text(), "25.0");
  EXPECT_FALSE(edit().Modified());
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "original")", R"(SetParameterStatus "x" "sync")"));
}

TEST_F(EditControlTest, TellsTheSyncWordOnChangeOnly) {
  connect();
  offline();
  edit().SetOnlineData(itemNode("x", "floatVal", "25"));
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "sync")"));
  edit().SetOnlineData(itemNode("x", "floatVal", "26"));
  EXPECT_THAT(take(), IsEmpty());
  edit().handleError("communicationError");
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "syncError")"));
  edit().handleError("missingItems");
  EXPECT_THAT(take(), IsEmpty());
  EXPECT_EQ(edit().Error(), "missingItems");
  EXPECT_EQ(edit().Text(), "26.0") << "the last good value stays";
  edit().SetOnlineData(itemNode("x", "floatVal", "26"));
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "x" "reSync")"));
  EXPECT_EQ(edit().Error(), "");
}

TEST_F(EditControlTest, AnAnswerWithoutTheItemOrItsValueChangesNothing) {
  connect();
  offline();
  edit().type("30");
  take();
  signals = 0;
  edit().SetOnlineData(Node());
  edit().SetOnlineData(Document::read("<comm:item name='x'/>").root());
  edit().setLocalData(Node());
  EXPECT_EQ(edit().Text(), "30.0");
  EXPECT_EQ(edit().syncWord(), "notRead");
  EXPECT_FALSE(edit().lastRead());
  EXPECT_EQ(signals, 0);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(EditControlTest, LocalDataShowsButIsNotRead) {
  connect();
  offline();
  edit().setLocalData(itemNode("x", "floatVal", "31"));
  EXPECT_EQ(edit().Text(), "31.0");
  EXPECT_FALSE(edit().Modified());
  EXPECT_EQ(edit().syncWord(), "notRead");
  EXPECT_FALSE(edit().lastRead());
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(EditControlTest, RemembersWhenItWasReadLast) {
  offline();
  desktop.advance(7);
  edit().SetOnlineData(itemNode("x", "floatVal", "1"));
  EXPECT_EQ(edit().lastRead(), desktop.now());
}

TEST_F(EditControlTest, ANewOfflineValueTakesTheErrorAway) {
  offline();
  edit().handleError("missingItems");
  edit().setOfflineData(parameterNode(R"(name="x" type="floatVal" value="1" offlineValue="2")"));
  EXPECT_EQ(edit().Error(), "");
}

TEST_F(EditControlTest, AHostThatRefusesAWordDoesNotKeepTheValueOffTheScreen) {
  connect();
  offline();
  calls.fail("SetParameterStatus");
  EXPECT_THROW(edit().type("30"), RuntimeError);
  EXPECT_EQ(edit().Text(), "30.0");
  EXPECT_TRUE(edit().Modified());
  EXPECT_EQ(edit().editWord(), "edited");
}

// --- the host's collection

TEST_F(EditControlTest, ModeOneCollectsAllModeTwoTheModified) {
  connect();
  offline();
  edit().ContextTag("group1");
  changes(2);
  changes(3);
  EXPECT_THAT(take(), IsEmpty());
  changes(1);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "x" "20" "20" "degC" "floatVal" "group1")"));
  edit().type("21");
  take();
  changes(3);
  EXPECT_THAT(take(), IsEmpty());
  changes(2);
  changes(1);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "x" "20" "21.0" "degC" "floatVal" "group1")",
                                  R"(AddChange "x" "x" "20" "21.0" "degC" "floatVal" "group1")"));
}

TEST_F(EditControlTest, AChangeBearsItsLabelAndTheDataUnit) {
  connect();
  edit().Localize(messenger->textTable);
  messenger->converter->userUnits["x"] = "degF";
  desktop.setLocale("de");
  offline();
  edit().type("86,0");
  take();
  changes(2);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "L:x" "20" "30" "degC" "floatVal" "")"));
}

TEST_F(EditControlTest, WhatStaysHereIsNotCollected) {
  connect();
  offline();
  edit().type("21");
  take();
  const auto collects = [&] {
    changes(1);
    changes(2);
    return !take().empty();
  };
  EXPECT_TRUE(collects());
  edit().KeepLocal(true);
  EXPECT_FALSE(collects());
  edit().KeepLocal(false);
  edit().ExplicitApply(true);
  EXPECT_FALSE(collects());
  edit().ExplicitApply(false);
  edit().ReadOnly(true);
  EXPECT_FALSE(collects());
  edit().ReadOnly(false);
  EXPECT_TRUE(collects());
  edit().type("300");
  take();
  EXPECT_FALSE(collects()) << "a wrong value";
  edit().setOfflineData(Node());
  take();
  EXPECT_FALSE(collects()) << "without a parameter";
}

TEST_F(EditControlTest, AFailingCollectionIsReportedUnderTheEditsName) {
  connect();
  edit().Localize(messenger->textTable);
  offline();
  calls.fail("AddChange");
  messenger->announce("CtrTextEdit mMessenger_ViewGetChanges: ", 440);
  changes(1);
  calls.fail("GetLabel", 1, 7, "no label");
  messenger->announce("CtrTextEdit mMessenger_ViewGetChanges: ", 7);
  changes(1);
  EXPECT_EQ(messenger->lastDescription(), "no label");
}

TEST_F(EditControlTest, TheViewMayBeReleasedDuringTheCollection) {
  connect();
  edit().Localize(messenger->textTable);
  offline();
  const int ended = TestView::ended;
  calls.during("GetLabel", [&] {
    view->Terminate();
    view = nullptr;
  });
  changes(1);
  EXPECT_EQ(TestView::ended, ended + 1);
  EXPECT_THAT(take(), ElementsAre(R"(AddChange "x" "L:x" "20" "20" "degC" "floatVal" "")"));
}

// --- items of a request

TEST_F(EditControlTest, GivesTheItemOfARequest) {
  offline();
  EXPECT_EQ(edit().GetXmlItem(true).xml(), R"(<item name="x" unit="degC"><floatVal>20</floatVal></item>)");
  edit().type("300");
}

// A stop sets 0 below the smallest value and must send it.
TEST_F(EditControlTest, TheItemHoldsWhateverTheEditHolds) {
  offline();
  for (const auto& [typed, told] : {std::pair{"300", "300.0"}, {"-1", "-1.0"}, {"a < b", "a < b"}, {"", ""}}) {
    edit().type(typed);
    EXPECT_FALSE(edit().Correct());
    EXPECT_EQ(edit().GetXmlItem().child("floatVal").text(), told);
    EXPECT_EQ(edit().GetXmlItem(false).child("floatVal").text(), told);
    EXPECT_EQ(edit().GetXmlItem(true).child("floatVal").text(), told);
  }
  edit().setOfflineData(parameterNode(R"(name="x" type="floatVal" value="" unit="mA" minVal="3.8")"));
  edit().Text("0");
  EXPECT_EQ(edit().GetXmlItem().xml(), R"(<item name="x" unit="mA"><floatVal>0</floatVal></item>)");
}

TEST_F(EditControlTest, WhatCannotBeToldInTheDataUnitBearsItsOwn) {
  connect();
  messenger->converter->userUnits["x"] = "degF";
  offline();
  edit().type("86");
  messenger->converter = nullptr;
  EXPECT_EQ(edit().GetXmlItem().xml(), R"(<item name="x" unit="degF"><floatVal>86.0</floatVal></item>)");
}

TEST_F(EditControlTest, WithoutAParameterAnItemIsAText) {
  edit().type("free \"text\" & <more>");
  EXPECT_EQ(edit().GetXmlItem().xml(), R"(<item name="x" unit="noUnit"><stringVal>free "text" &amp; &lt;more&gt;</stringVal></item>)");
}

TEST_F(EditControlTest, ARequestNamesTheElementsOfTheWire) {
  offline(
      R"(name="PAAddress" type="intVal" value="42" offlineValue="" unit="noUnit" decimals="0" minVal="0" maxVal="126" access="readWrite" synchronised="0")");
  EXPECT_EQ(edit().GetXmlItem().xml(), R"(<item name="x" unit="noUnit"><integerVal>42</integerVal></item>)");
  edit().type("126");
  EXPECT_TRUE(edit().Correct());
  edit().type("127");
  EXPECT_FALSE(edit().Correct());
  offline(R"(name="x" type="float" value="1")");
  EXPECT_EQ(edit().GetXmlItem().xml(), R"(<item name="x" unit="noUnit"><floatVal>1</floatVal></item>)");
}

TEST_F(EditControlTest, AnItemGoesByTheTagAtTheTime) {
  offline();
  edit().Tag("ctr_renamed");
  EXPECT_EQ(edit().GetXmlItem().attribute("name"), "renamed");
}

// --- life

TEST_F(EditControlTest, OffersTheInterfacesOfAnEdit) {
  IObject* const object = edit().Object();
  EXPECT_TRUE(query<ITaviComponent>(object));
  EXPECT_TRUE(query<ITaviDataEditor>(object));
  EXPECT_TRUE(query<ILocalizable>(object));
  EXPECT_FALSE(query<ITaviDataUser>(object));
  EXPECT_FALSE(query<ITaviView>(object));
  EXPECT_EQ(object->queryInterface(ITaviView::kId, nullptr), Result::BadPointer);
  EXPECT_EQ(edit().dataEditor(), query<ITaviDataEditor>(object).get());
}

TEST_F(EditControlTest, HoldsItsViewThroughItsInterfaces) {
  offline();
  const Ref<ITaviDataEditor> editor = query<ITaviDataEditor>(edit().Object());
  const int ended = TestView::ended;
  view = nullptr;
  EXPECT_EQ(TestView::ended, ended);
  EXPECT_EQ(editor->GetXmlItem(true).child("floatVal").text(), "20");
}

TEST_F(EditControlTest, AnotherMessengerTakesThePlaceOfTheFirst) {
  connect();
  const Ref<FakeMessenger> first = messenger;
  connect();
  EXPECT_EQ(first->listeners(), 0u);
  EXPECT_EQ(first->count(), 1u);
  offline();
  first->raiseGetChanges(1);
  EXPECT_THAT(take(), IsEmpty());
  edit().SetMessenger(nullptr);
  EXPECT_EQ(messenger->listeners(), 0u);
}

TEST_F(EditControlTest, AHostThatCannotBeLeftIsLeftAllTheSame) {
  connect();
  calls.fail("Unsubscribe");
  view->Terminate();
  EXPECT_EQ(messenger->count(), 1u);
}

TEST_F(EditControlTest, LeavingRaisesLostFocus) {
  int lost = 0;
  edit().LostFocus.connect([&] { ++lost; });
  edit().leave();
  EXPECT_EQ(lost, 1) << "also without the focus: a player says so";
  edit().SetFocus();
  edit().leave();
  EXPECT_EQ(lost, 2);
  EXPECT_EQ(view->focused(), nullptr);
}

TEST_F(EditControlTest, PropertiesByName) {
  offline();
  edit().set("Text", {}, std::string("21"));
  EXPECT_EQ(edit().get("Text", {}), Value("21"));
  for (const char* property : {"Modified", "KeepLocal", "ExplicitApply", "ReadOnly"}) {
    EXPECT_EQ(edit().get(property, {}), Value(false)) << property;
    edit().set(property, {}, true);
    EXPECT_EQ(edit().get(property, {}), Value(true)) << property;
  }
  EXPECT_EQ(edit().get("Correct", {}), Value(true));
  EXPECT_EQ(edit().get("Error", {}), Value(std::string()));
  EXPECT_EQ(edit().get("Tag", {}), Value("ctr_x"));
  EXPECT_THROW(edit().set("Correct", {}, true), RuntimeError) << "is found, not set";
  EXPECT_THROW(edit().set("Text", {}, 7), RuntimeError);
}

}  // namespace
}  // namespace ostrand
