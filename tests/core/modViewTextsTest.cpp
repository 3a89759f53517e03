// The two walks that move no data: Localize and setMessenger.

#include "ViewBench.h"
#include "platform/controls/CtrFocusTransfer.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLocalize = "modView Localize: ";

struct LocalizeTest : ViewBench {
  Ref<ITextTable> table{messenger->textTable};
};

TEST_F(LocalizeTest, TranslatesLabelsBoxesAndButtonsByGetLabel) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<Label>("label"), "damping")
        .row(at.make<CheckBox>("check"), "reset")
        .row(at.make<OptionButton>("option"), "grade1")
        .button(at.make<CommandButton>("button"), "accept", "Accept");
  });
  view->Localize(table);
  EXPECT_EQ(get<Label>("label").Caption(), "L:damping");
  EXPECT_EQ(get<CheckBox>("check").Caption(), "L:reset");
  EXPECT_EQ(get<OptionButton>("option").Caption(), "L:grade1");
  EXPECT_EQ(get<OptionButton>("option").Tag(), "grade1") << "translated, but the tag stays";
  EXPECT_EQ(get<CommandButton>("button").Caption(), "L:accept");
  EXPECT_EQ(view->lblTitle(0).Caption(), "L:key") << "the title's tag is the frame's key";
  EXPECT_EQ(view->frmViews(0).Caption(), "");
  EXPECT_EQ(view->ctrDateLabels(0).Caption(), "");
}

TEST_F(LocalizeTest, AnEmptyTagKeepsTheDesignTimeCaption) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").button(at.make<CommandButton>("button"), "", "Design").row(at.make<Label>("label"), "");
  });
  get<Label>("label").Caption("as designed");
  view->Localize(table);
  EXPECT_EQ(get<CommandButton>("button").Caption(), "Design");
  EXPECT_EQ(get<Label>("label").Caption(), "as designed");
}

TEST_F(LocalizeTest, ATextBoxIsTranslatedByGetTextUnlessItShowsAValue) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<TextBox>("text"), "help")
        .row(at.make<TextBox>("value"), "ctr_help")
        .row(at.make<TextBox>("empty"), "");
  });
  view->Localize(table);
  EXPECT_EQ(get<TextBox>("text").Text(), "T:help");
  EXPECT_EQ(get<TextBox>("value").Text(), "");
  EXPECT_EQ(get<TextBox>("empty").Text(), "");
}

TEST_F(LocalizeTest, AListsColumnsAreTranslatedByGetText) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").table(at.make<ListView>("list"), "list", {{"time", 1}, {"", 1}, {"event", 1}}, 1);
  });
  view->Localize(table);
  EXPECT_EQ(get<ListView>("list").Header(1), "T:time");
  EXPECT_EQ(get<ListView>("list").Header(2), "");
  EXPECT_EQ(get<ListView>("list").Header(3), "T:event");
}

TEST_F(LocalizeTest, NestedComponentsAndEditsLocalizeThemselves) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<CtrComboEdit>("combo"), "ctr_x");
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "nested");
    form.nested(at.make<Nested<FakeNestedBare>>("bare"), "bare");
  });
  view->Localize(table);
  EXPECT_EQ(get<CtrComboEdit>("combo").label("a"), "L:a");
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), ElementsAre("Localize"));
  EXPECT_THAT(nested<FakeNestedBare>("bare").calls.take(), IsEmpty()) << "passed over without a report";
}

TEST_F(LocalizeTest, PlainKindsAreNotAsked) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<PictureBox>("picture"), "picture")
        .row(at.make<Timer>("timer"), "timer")
        .row(at.make<Slider>("slider"), "slider")
        .row(at.make<CtrFocusTransfer>("transfer"), "transfer");
  });
  probeOn();
  view->Localize(table);
  EXPECT_THAT(probe.calls.take(), ElementsAre("lblTitle(0).Caption = \"L:key\""));
}

TEST_F(LocalizeTest, AFailureCostsOneStatement) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<Label>("a"), "a").row(at.make<Label>("b"), "b").row(at.make<Label>("c"), "c");
  });
  get<Label>("a").Caption("before");
  probeOn();
  probe.calls.fail("b.Caption =", 1, 7, "told");
  calls.fail("GetLabel", 2);
  messenger->announce(kLocalize, 440);
  messenger->announce(kLocalize, 7);
  view->Localize(table);
  EXPECT_EQ(get<Label>("a").Caption(), "before") << "a text that cannot be had is not shown as an empty one";
  EXPECT_EQ(get<Label>("b").Caption(), "");
  EXPECT_EQ(get<Label>("c").Caption(), "L:c");
}

TEST_F(LocalizeTest, WhatCannotBeTranslatedStandsAsItWas) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<TextBox>("box"), "help").table(at.make<ListView>("list"), "list", {{"time", 1}, {"event", 1}}, 1);
  });
  view->Localize(table);
  calls.fail("GetText", 1);
  calls.fail("GetText", 3);
  for (int i = 0; i < 2; ++i) messenger->announce(kLocalize, 440);
  view->Localize(Ref<ITextTable>(new FakeTextTable(calls, "fi ")));
  EXPECT_EQ(get<TextBox>("box").Text(), "T:help");
  EXPECT_EQ(get<ListView>("list").Header(1), "fi T:time");
  EXPECT_EQ(get<ListView>("list").Header(2), "T:event");
}

TEST_F(LocalizeTest, ATagThatTheHostRewritesMeanwhileIsNotReadAgain) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<Label>("label"), "aTagThatIsTooLongToBeKeptInPlace")
        .row(at.make<TextBox>("box"), "anotherTagThatIsTooLongToBeKept")
        .table(at.make<ListView>("list"), "list", {{"aColumnsTagThatIsTooLongAsWell", 1}}, 1);
  });
  calls.during("GetLabel", [&] { calls.during("GetLabel", [&] { get<Label>("label").Tag(std::string(100, 'x')); }); });
  calls.during("GetText", [&] {
    get<TextBox>("box").Tag(std::string(100, 'x'));
    calls.during("GetText", [&] { get<ListView>("list").HeaderTag(1, std::string(100, 'x')); });
  });
  view->Localize(table);
  EXPECT_EQ(get<Label>("label").Caption(), "L:aTagThatIsTooLongToBeKeptInPlace");
  EXPECT_EQ(get<TextBox>("box").Text(), "T:anotherTagThatIsTooLongToBeKept");
  EXPECT_EQ(get<ListView>("list").Header(1), "T:aColumnsTagThatIsTooLongAsWell");
}

TEST_F(LocalizeTest, AHostMayGiveItsTextTableUpMeanwhile) {
  place([](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<Label>("a"), "a").row(at.make<Label>("b"), "b"); });
  Ref<ITextTable> given(new FakeTextTable(calls, "fi "));
  calls.during("GetLabel", [&] { given = nullptr; });
  view->Localize(given);
  EXPECT_EQ(get<Label>("b").Caption(), "fi L:b");
}

TEST_F(LocalizeTest, AClassThatCannotBeToldCostsOneControl) {
  messenger->announce("modView setMessenger: ", 438);
  placeWithHost(
      [](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<Untellable>("what"), "what").row(at.make<Label>("b"), "b"); });
  messenger->announce(kLocalize, 438);
  view->Localize(table);
  EXPECT_EQ(get<Label>("what").Caption(), "");
  EXPECT_EQ(get<Label>("b").Caption(), "L:b");
}

TEST_F(LocalizeTest, FailuresInsideNestedCallsAreSilent) {
  placeWithHost([](TestView& at, Form& form) {
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "nested");
    at.frame(form, "key", "date_key").row(at.make<Label>("a"), "a");
  });
  nested<FakeNestedView>("nested").calls.fail("Localize");
  view->Localize(table);
  EXPECT_EQ(get<Label>("a").Caption(), "L:a");
}

TEST_F(LocalizeTest, AMissingTextTableIsReportedForEachTextThatItOwes) {
  placeWithHost([](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<Label>("a"), "a"); });
  messenger->announce(kLocalize, 91);
  messenger->announce(kLocalize, 91);
  view->Localize(nullptr);
}

TEST_F(LocalizeTest, MayRunAgainInAnotherLanguage) {
  place([](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<Label>("a"), "a"); });
  view->Localize(table);
  view->Localize(Ref<ITextTable>(new FakeTextTable(calls, "fi ")));
  EXPECT_EQ(get<Label>("a").Caption(), "fi L:a");
}

// --- setMessenger

using SetMessengerTest = ViewBench;

TEST_F(SetMessengerTest, EveryEditAndNestedViewHoldsTheMessenger) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("text"), "ctr_a")
        .row(at.make<CtrComboEdit>("combo"), "ctr_b")
        .row(at.make<CtrDateEdit>("date"), "ctr_c")
        .row(at.make<CtrTimeEdit>("time"), "ctr_d")
        .row(at.make<CtrOptionEdit>("option"), "ctr_e")
        .row(at.make<CtrCheckEdit>("check"), "ctr_f");
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "nested");
    form.nested(at.make<Nested<FakeNestedUser>>("user"), "user");
  });
  view->SetMessenger(messenger);
  EXPECT_EQ(messenger->listeners(), 7u) << "the view and six edits";
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), ElementsAre("SetMessenger"));
  EXPECT_THAT(nested<FakeNestedUser>("user").calls.take(), IsEmpty()) << "passed over without a report";
}

TEST_F(SetMessengerTest, PlainKindsAndDateLabelsAreNotAsked) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<Label>("label"), "a", at.make<CtrTextEdit>("text"), "ctr_a").row(at.make<ListView>("list"), "list");
  });
  probeOn();
  view->SetMessenger(messenger);
  EXPECT_THAT(probe.calls.take(), ElementsAre("text.SetMessenger"));
}

TEST_F(SetMessengerTest, AClassThatCannotBeToldCostsOneControl) {
  place([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<Untellable>("what"), "ctr_a").row(at.make<CtrTextEdit>("text"), "ctr_a");
  });
  messenger->announce("modView setMessenger: ", 438);
  view->SetMessenger(messenger);
  EXPECT_EQ(messenger->listeners(), 2u) << "the view and the edit";
}

TEST_F(SetMessengerTest, FailuresInsideAreSilentAndTheWalkGoesOn) {
  place([](TestView& at, Form& form) {
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "nested");
    at.frame(form, "key", "date_key").row(at.make<CtrTextEdit>("a"), "ctr_a").row(at.make<CtrTextEdit>("b"), "ctr_b");
  });
  nested<FakeNestedView>("nested").calls.fail("SetMessenger");
  calls.fail("Subscribe", 2);
  view->SetMessenger(messenger);
  EXPECT_EQ(messenger->listeners(), 2u) << "the view and one edit";
}

}  // namespace
}  // namespace ostrand
