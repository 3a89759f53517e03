#include "platform/controls/PlainControls.h"

#include "support/ControlBench.h"
#include "support/ErrorOf.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

using ButtonTest = ControlBench<CommandButton>;
using CheckBoxTest = ControlBench<CheckBox>;
using TextBoxTest = ControlBench<TextBox>;
using SliderTest = ControlBench<Slider>;
using TimerTest = ControlBench<Timer>;
using ListViewTest = ControlBench<ListView>;

// --- buttons and boxes

TEST_F(ButtonTest, ClicksWhenItCanBeReached) {
  int clicks = 0;
  edit().Click.connect([&] { ++clicks; });
  edit().click();
  EXPECT_EQ(clicks, 1);
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().click(); }), 70);
  edit().Enabled(true);
  edit().Visible(false);
  EXPECT_EQ(errorOf([&] { edit().click(); }), 70);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonTest, MayEndItsViewInAClick) {
  const int ended = TestView::ended;
  int after = 0;
  edit().Click.connect([&] { view = nullptr; });
  edit().Click.connect([&] {
    EXPECT_EQ(TestView::ended, ended) << "alive until every listener has returned";
    ++after;
  });
  edit().click();
  EXPECT_EQ(after, 1);
  EXPECT_EQ(TestView::ended, ended + 1);
}

TEST_F(ButtonTest, PropertiesByNameAndOneSignalForAChange) {
  signals = 0;
  edit().Caption("Go");
  edit().Caption("Go");
  EXPECT_EQ(signals, 1);
  EXPECT_EQ(edit().get("Caption", {}), Value("Go"));
  edit().set("Caption", {}, std::string("Stop"));
  EXPECT_EQ(edit().Caption(), "Stop");
  for (const char* property : {"Left", "Top", "Width", "Height"}) {
    edit().set(property, {}, 17);
    EXPECT_EQ(edit().get(property, {}), Value(17)) << property;
  }
  for (const char* property : {"Enabled", "TabStop", "Visible"}) {
    edit().set(property, {}, false);
    EXPECT_EQ(edit().get(property, {}), Value(false)) << property;
  }
  for (const char* property : {"Tag", "ContextTag"}) {
    edit().set(property, {}, std::string("t"));
    EXPECT_EQ(edit().get(property, {}), Value("t")) << property;
  }
  edit().set("BackColor", {}, 0x123456);
  EXPECT_EQ(edit().BackColor(), (Color{Color::Role::Given, 0x123456}));
  EXPECT_EQ(edit().get("BackColor", {}), Value(0x123456));
  EXPECT_EQ(errorOf([&] { edit().get("Text", {}); }), 438);
  EXPECT_EQ(errorOf([&] { edit().set("Text", {}, std::string()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().set("Left", {}, std::string("7")); }), 13);
}

TEST_F(ButtonTest, HasNoneOfTheDataOperations) {
  EXPECT_EQ(errorOf([&] { edit().setImportData(Node()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().setOfflineData(Node()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().SetOnlineData(Node()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().setLocalData(Node()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().SetMappings(Node()); }), 438);
  EXPECT_EQ(errorOf([&] { edit().handleError("x"); }), 438);
}

TEST_F(CheckBoxTest, RaisesClickWhenTheValueReallyChanges) {
  int clicks = 0;
  edit().Click.connect([&] { ++clicks; });
  edit().click();
  EXPECT_TRUE(edit().Value());
  edit().Value(true);
  EXPECT_EQ(clicks, 1);
  edit().Value(false);
  EXPECT_EQ(clicks, 2);
  edit().set("Value", {}, true);
  EXPECT_EQ(edit().get("Value", {}), Value(true));
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().click(); }), 70);
  EXPECT_EQ(clicks, 3);
}

TEST_F(TextBoxTest, HasAText) {
  signals = 0;
  edit().Text("a");
  edit().Text("a");
  EXPECT_EQ(signals, 1);
  edit().set("Text", {}, std::string("b"));
  EXPECT_EQ(edit().get("Text", {}), Value("b"));
  EXPECT_EQ(edit().Text(), "b");
}

struct OptionButtonTest : testing::Test {
  VirtualDesktop desktop;
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    PictureBox& holder = at.make<PictureBox>("pic");
    OptionButton &a = at.make<OptionButton>("opt(0)"), &b = at.make<OptionButton>("opt(1)"), &c = at.make<OptionButton>("opt(2)");
    at.frame(form, "key", "date_key").group(holder, {{&a, "a"}, {&b, "b"}, {&c, "c"}});
  });
  std::vector<std::string> clicks;

  OptionButton& opt(int i) { return view->get<OptionButton>("opt(" + std::to_string(i) + ")"); }
  std::string state() { return std::string() + (opt(0).Value() ? '1' : '0') + (opt(1).Value() ? '1' : '0') + (opt(2).Value() ? '1' : '0'); }
  OptionButtonTest() {
    for (int i = 0; i < 3; ++i) opt(i).Click.connect([this, i] { clicks.push_back(std::to_string(i) + " " + state()); });
  }
};

TEST_F(OptionButtonTest, OneOfAGroupIsOn) {
  EXPECT_EQ(state(), "000");
  opt(1).click();
  opt(2).Value(true);
  EXPECT_EQ(state(), "001");
  EXPECT_THAT(clicks, ElementsAre("1 010", "2 001")) << "the others are off before anybody hears of it";
}

TEST_F(OptionButtonTest, WhatIsOnAlreadyOrGoesOffRaisesNoClick) {
  opt(1).click();
  clicks.clear();
  opt(1).click();
  opt(1).Value(true);
  EXPECT_THAT(clicks, IsEmpty());
  opt(1).Value(false);
  EXPECT_EQ(state(), "000");
  EXPECT_THAT(clicks, IsEmpty());
  opt(0).Enabled(false);
  EXPECT_EQ(errorOf([&] { opt(0).click(); }), 70);
  opt(0).set("Value", {}, true);
  EXPECT_EQ(opt(0).get("Value", {}), Value(true)) << "code may switch on what the user cannot reach";
}

// --- slider

TEST_F(SliderTest, StaysInItsRangeAndTellsRealChanges) {
  edit().designRange(20, 300, 10, 50);
  EXPECT_EQ(edit().Value(), 20);
  EXPECT_EQ(edit().SmallChange(), 10);
  EXPECT_EQ(edit().LargeChange(), 50);
  int changes = 0;
  edit().Change.connect([&] { ++changes; });
  edit().slide(40);
  edit().slide(40);
  edit().Value(300);
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(errorOf([&] { edit().Value(301); }), 5);
  EXPECT_EQ(errorOf([&] { edit().slide(19); }), 5);
  EXPECT_EQ(edit().Value(), 300);
  edit().set("Value", {}, 30);
  EXPECT_EQ(edit().get("Value", {}), Value(30));
  EXPECT_EQ(edit().get("Min", {}), Value(20));
  EXPECT_EQ(edit().get("Max", {}), Value(300));
  edit().Visible(false);
  EXPECT_EQ(errorOf([&] { edit().slide(50); }), 70);
}

// --- timer

TEST_F(TimerTest, TurnsAgainAndAgainUntilStopped) {
  int turns = 0;
  edit().Elapsed.connect([&] { ++turns; });
  EXPECT_FALSE(edit().Enabled());
  EXPECT_FALSE(edit().Visible());
  edit().start(2);
  EXPECT_TRUE(edit().Enabled());
  desktop.advance(1.9);
  EXPECT_EQ(turns, 0);
  desktop.advance(4.2);
  EXPECT_EQ(turns, 3);
  edit().start(10);
  desktop.advance(9.9);
  EXPECT_EQ(turns, 3) << "starts anew";
  edit().stop();
  desktop.advance(60);
  EXPECT_EQ(turns, 3);
  EXPECT_FALSE(edit().Enabled());
}

TEST_F(TimerTest, MayBeStoppedOrEndedInItsOwnTurn) {
  int turns = 0;
  const auto listener = edit().Elapsed.connect([&] {
    ++turns;
    edit().stop();
  });
  edit().start(1);
  desktop.advance(10);
  EXPECT_EQ(turns, 1);
  edit().Elapsed.disconnect(listener);
  edit().Elapsed.connect([&] {
    ++turns;
    view = nullptr;
  });
  edit().start(1);
  desktop.advance(10);
  EXPECT_EQ(turns, 2);
  EXPECT_FALSE(view);
}

TEST_F(TimerTest, StopsWithItsView) {
  int turns = 0;
  edit().Elapsed.connect([&] { ++turns; });
  edit().start(1);
  view->PrepareToRelease();
  desktop.advance(10);
  EXPECT_EQ(turns, 0);
}

TEST(LooseTimerTest, CannotStartWithoutADesktop) {
  Timer timer("tmr");
  EXPECT_EQ(errorOf([&] { timer.start(1); }), 91);
  EXPECT_FALSE(timer.Enabled());
}

// --- list view

TEST_F(ListViewTest, RowsAndColumnsCountFromOne) {
  edit().AddColumn("first", 100);
  edit().AddColumn("second", 200);
  edit().AddRow();
  edit().AddRow();
  edit().Cell(2, 1, "x");
  EXPECT_EQ(edit().Cell(2, 1), "x");
  EXPECT_EQ(edit().Cell(1, 2), "");
  EXPECT_EQ(edit().Count(), 2);
  EXPECT_EQ(edit().ColumnCount(), 2);
  EXPECT_EQ(edit().HeaderTag(2), "second");
  EXPECT_EQ(edit().ColumnWidth(2), 200);
  for (const auto& [row, column] : {std::pair{0, 1}, {3, 1}, {1, 0}, {1, 3}}) {
    EXPECT_EQ(errorOf([&, r = row, c = column] { edit().Cell(r, c); }), 9);
    EXPECT_EQ(errorOf([&, r = row, c = column] { edit().Cell(r, c, "no"); }), 9);
    EXPECT_EQ(errorOf([&, r = row, c = column] { edit().CellColor(r, c, Color::errorText()); }), 9);
  }
  EXPECT_EQ(errorOf([&] { edit().Checked(3); }), 9);
  EXPECT_EQ(errorOf([&] { edit().RemoveRow(0); }), 9);
  EXPECT_EQ(errorOf([&] { edit().Header(3, "no"); }), 9);
  EXPECT_EQ(errorOf([&] { edit().SelectedRow(3); }), 9);
  edit().Clear();
  EXPECT_EQ(edit().Count(), 0);
  EXPECT_EQ(edit().ColumnCount(), 2);
}

TEST_F(ListViewTest, AColumnThatComesLaterHasCellsInEveryRow) {
  edit().AddRow();
  edit().AddColumn("late", 100);
  EXPECT_EQ(edit().Cell(1, 1), "");
  edit().Cell(1, 1, "now");
  edit().CellColor(1, 1, Color::errorText());
  EXPECT_EQ(edit().Cell(1, 1), "now");
  EXPECT_EQ(edit().CellColor(1, 1), Color::errorText());
}

TEST_F(ListViewTest, TheSelectionGoesWithItsRow) {
  for (int i = 0; i < 4; ++i) edit().AddRow();
  edit().SelectedRow(3);
  edit().RemoveRow(4);
  EXPECT_EQ(edit().SelectedRow(), 3);
  edit().RemoveRow(1);
  EXPECT_EQ(edit().SelectedRow(), 2);
  edit().RemoveRow(2);
  EXPECT_EQ(edit().SelectedRow(), 0);
  edit().SelectedRow(1);
  edit().Clear();
  EXPECT_EQ(edit().SelectedRow(), 0);
}

TEST_F(ListViewTest, TheUserChecksClicksAndEdits) {
  std::vector<std::string> heard;
  edit().ItemCheck.connect([&](int row) { heard.push_back("check " + std::to_string(row)); });
  edit().ItemClick.connect([&](int row) { heard.push_back("click " + std::to_string(row)); });
  edit().AfterLabelEdit.connect([&](int row, const std::string& text) { heard.push_back("edit " + std::to_string(row) + " " + text); });
  edit().AddColumn("c", 1);
  edit().AddRow();
  edit().AddRow();
  EXPECT_EQ(errorOf([&] { edit().check(1, true); }), 70) << "no boxes";
  EXPECT_EQ(errorOf([&] { edit().editRow(1, "x"); }), 70) << "no edit in place";
  edit().CheckBoxes(true);
  edit().LabelEdit(true);
  edit().check(2, true);
  edit().check(2, true);
  edit().Checked(1, true);
  edit().clickRow(1);
  edit().editRow(2, "typed");
  EXPECT_THAT(heard, ElementsAre("check 2", "click 1", "edit 2 typed")) << "code raises no event";
  EXPECT_TRUE(edit().Checked(1) && edit().Checked(2));
  EXPECT_EQ(edit().SelectedRow(), 1);
  EXPECT_EQ(edit().Cell(2, 1), "typed");
  EXPECT_EQ(errorOf([&] { edit().check(3, true); }), 9);
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().clickRow(1); }), 70);
  EXPECT_EQ(errorOf([&] { edit().check(1, false); }), 70);
}

TEST_F(ListViewTest, WhoHearsOfAnEditMaySayWhatBecomesOfTheText) {
  edit().AddColumn("c", 1);
  edit().LabelEdit(true);
  edit().AddRow();
  std::string stood;
  edit().AfterLabelEdit.connect([&](int row, std::string& text) {
    stood = edit().Cell(row, 1);
    text = "3.50";
  });
  edit().editRow(1, "3,5");
  EXPECT_EQ(stood, "3,5") << "what was typed stands there at once";
  EXPECT_EQ(edit().Cell(1, 1), "3.50");
  edit().AfterLabelEdit.connect([&](int row, std::string&) { edit().RemoveRow(row); });
  edit().editRow(1, "4");
  EXPECT_EQ(edit().Count(), 0);
}

TEST_F(ListViewTest, AnEditWhoseHandlerFailsIsNotLost) {
  edit().AddColumn("c", 1);
  edit().LabelEdit(true);
  edit().AddRow();
  edit().AfterLabelEdit.connect([](int, std::string&) { throw RuntimeError(13, "no number"); });
  EXPECT_EQ(errorOf([&] { edit().editRow(1, "typed"); }), 13);
  EXPECT_EQ(edit().Cell(1, 1), "typed");
  EXPECT_EQ(errorOf([&] { edit().editRow(2, "x"); }), 9);
}

TEST_F(ListViewTest, TellsWhichRowsHaveChangedSince) {
  edit().AddColumn("c", 1);
  for (int row = 1; row <= 4; ++row) edit().AddRow();
  std::uint64_t seen = edit().changeCount();
  const auto changed = [&] {
    std::vector<int> rows;
    for (int row = 1; row <= edit().Count(); ++row)
      if (edit().changeOfRow(row) > seen) rows.push_back(row);
    if (edit().changeOfForm() > seen) rows.push_back(0);
    seen = edit().changeCount();
    return rows;
  };
  EXPECT_THAT(changed(), ElementsAre());
  edit().Cell(2, 1, "x");
  edit().CheckBoxes(false);
  EXPECT_THAT(changed(), ElementsAre(2));
  edit().CellColor(3, 1, Color::errorText());
  edit().Checked(4, true);
  EXPECT_THAT(changed(), ElementsAre(3, 4));
  edit().CheckBoxes(true);
  EXPECT_THAT(changed(), ElementsAre(0));
  edit().check(1, true);
  EXPECT_THAT(changed(), ElementsAre(1));
  edit().RemoveRow(2);
  EXPECT_THAT(changed(), ElementsAre(2, 3)) << "they stand at another index";
  edit().AddRow();
  EXPECT_THAT(changed(), ElementsAre(4));
  edit().Header(1, "C");
  edit().ColumnWidth(1, 2);
  EXPECT_THAT(changed(), ElementsAre(0));
}

TEST_F(ListViewTest, ARowKeepsItsTag) {
  edit().AddRow();
  edit().AddRow();
  edit().RowTag(2, "historyLabFiller");
  edit().RemoveRow(1);
  EXPECT_EQ(edit().RowTag(1), "historyLabFiller");
  EXPECT_EQ(errorOf([&] { edit().RowTag(2); }), 9);
  const int one[] = {1};
  edit().set("RowTag", one, std::string("other"));
  EXPECT_EQ(edit().get("RowTag", one), Value("other"));
}

TEST_F(ListViewTest, AColumnTellsWhatItsCellsHold) {
  edit().AddColumn("text", 1);
  edit().AddColumn("number", 1, ListView::Content::Number);
  EXPECT_EQ(edit().ColumnContent(1), ListView::Content::Text);
  EXPECT_EQ(edit().ColumnContent(2), ListView::Content::Number);
  EXPECT_EQ(errorOf([&] { edit().ColumnContent(3); }), 9);
}

TEST_F(ListViewTest, UnchangedCellsRaiseNoSignal) {
  edit().AddColumn("c", 1);
  edit().AddRow();
  edit().Cell(1, 1, "x");
  signals = 0;
  edit().Cell(1, 1, "x");
  edit().CellColor(1, 1, Color::text());
  edit().Checked(1, false);
  edit().Header(1, "");
  edit().ColumnWidth(1, 1);
  EXPECT_EQ(signals, 0);
  edit().Cell(1, 1, "y");
  EXPECT_EQ(signals, 1);
}

TEST_F(ListViewTest, PropertiesByNameAndIndex) {
  edit().AddColumn("c", 10);
  edit().AddRow();
  const int one[] = {1}, both[] = {1, 1};
  edit().set("Cell", both, std::string("x"));
  edit().set("Color", both, 0xFF);
  edit().set("Header", one, std::string("h"));
  edit().set("HeaderTag", one, std::string("t"));
  edit().set("ColumnWidth", one, 20);
  edit().set("Checked", one, true);
  EXPECT_EQ(edit().get("Cell", both), Value("x"));
  EXPECT_EQ(edit().get("Color", both), Value(0xFF));
  EXPECT_EQ(edit().get("Header", one), Value("h"));
  EXPECT_EQ(edit().get("HeaderTag", one), Value("t"));
  EXPECT_EQ(edit().get("ColumnWidth", one), Value(20));
  EXPECT_EQ(edit().get("Checked", one), Value(true));
  EXPECT_EQ(edit().get("Count", {}), Value(1));
  EXPECT_EQ(edit().get("SelectedRow", {}), Value(0));
  EXPECT_EQ(errorOf([&] { edit().get("Header", both); }), 5);
  EXPECT_EQ(errorOf([&] { edit().get("Cell", one); }), 438);
}

}  // namespace
}  // namespace ostrand
