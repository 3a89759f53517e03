#include "platform/controls/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/ErrorOf.h"
#include "support/FakeCalls.h"
#include "support/RecordingProbe.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;

// A component that is nothing but a form.
class Panel : public Component {
 public:
  std::function<void(Panel&, Form&)> declaration;
  ::ostrand::Frame frame1{"frame1"}, frame2{"frame2"};
  Label title{"title"}, label1{"label1"}, label2{"label2"}, head1{"head1"}, head2{"head2"};
  CtrDateLabel stamp{"stamp"};
  CtrTextEdit a{"a"}, b{"b"}, c{"c"}, d{"d"};
  CommandButton button{"button"}, button2{"button2"};
  PictureBox picture{"picture"};
  ListView list{"list"}, list2{"list2"};
  ControlArray<OptionButton> options{"options"};
  ControlArray<CtrTextEdit> holes{"holes"};
  Nested<CtrMonitoring> nested{"nested"};

  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const Control* control : controls()) all.push_back(control->name());
    return all;
  }
  std::string_view objectName() const override { return "Panel"; }

 protected:
  void declare(Form& form) override { declaration(*this, form); }
  bool offerInterface(const Guid&, void**) noexcept override { return false; }
};

using Place = std::tuple<int, int, int, int>;
Place placeOf(const Control& control) { return {control.Left(), control.Top(), control.Width(), control.Height()}; }

struct FormTest : testing::Test {
  VirtualDesktop desktop;
  Ref<Panel> panel{new Panel};
  void declare(std::function<void(Panel&, Form&)> declaration) {
    panel->declaration = std::move(declaration);
    panel->Place(desktop, nullptr, "panel");
  }
};

TEST_F(FormTest, TheOrderOfGetControls) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .title(at.title, "one")
        .stamp(at.stamp, "date_one")
        .row(at.label1, "l1", at.a, "ctr_a")
        .cell(at.b, "ctr_b")
        .button(at.button, "accept", "Accept");
    form.frame(at.frame2, "two").row(at.label2, "l2", at.c, "ctr_c");
    form.nested(at.nested, "live");
  });
  EXPECT_THAT(panel->names(), ElementsAre("frame1", "title", "stamp", "CtrFocusTransfer1", "label1", "a", "b", "button", "CtrFocusTransfer2",
                                          "frame2", "label2", "c", "nested"));
  EXPECT_EQ(panel->frame1.Tag(), "one");
  EXPECT_EQ(panel->title.Tag(), "one");
  EXPECT_EQ(panel->stamp.Tag(), "date_one");
  EXPECT_EQ(panel->label1.Tag(), "l1");
  EXPECT_EQ(panel->a.Tag(), "ctr_a");
  EXPECT_EQ(panel->button.Tag(), "accept");
  EXPECT_EQ(panel->button.Caption(), "Accept");
  EXPECT_EQ(panel->nested.Tag(), "live");
  EXPECT_EQ(panel->nested->tag(), "live");
  EXPECT_EQ(panel->front(), &panel->frame1);
  for (Control* control : panel->controls()) EXPECT_EQ(control->owner(), panel.get());
}

TEST_F(FormTest, RowsPlaceThemselves400Apart) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .row(at.label1, "l1", at.a, "ctr_a")
        .row(at.label2, "l2", at.b, "ctr_b")
        .cell(at.c, "ctr_c")
        .button(at.button, "k", "K");
  });
  EXPECT_EQ(placeOf(panel->frame1), Place(0, 0, panel->width(), panel->height()));
  EXPECT_EQ(panel->b.Top() - panel->a.Top(), 400);
  EXPECT_EQ(panel->button.Top() - panel->b.Top(), 400);
  EXPECT_EQ(panel->label1.Top(), panel->a.Top());
  EXPECT_EQ(panel->c.Top(), panel->b.Top());
  EXPECT_GT(panel->a.Left(), panel->label1.Left() + panel->label1.Width());
  EXPECT_GT(panel->c.Left(), panel->b.Left() + panel->b.Width());
  EXPECT_EQ(panel->a.Left(), panel->b.Left());
}

TEST_F(FormTest, ATableHasItsHeadsOverItsColumns) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").heads({{&at.head1, "h1"}, {&at.head2, "h2"}}).row(at.label1, "l1", at.a, "ctr_a").cell(at.b, "ctr_b");
  });
  EXPECT_EQ(panel->head1.Left(), panel->a.Left());
  EXPECT_EQ(panel->head2.Left(), panel->b.Left());
  EXPECT_EQ(panel->a.Top() - panel->head1.Top(), 400);
}

TEST_F(FormTest, AStackHasOneVisibleControlOnOnePlace) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").button(at.button, "first", "First").over(at.button2, "second", "Second").hidden(at.c, "ctr_c").row(at.d, "ctr_d");
  });
  EXPECT_TRUE(panel->button.Visible());
  EXPECT_FALSE(panel->button2.Visible());
  EXPECT_FALSE(panel->c.Visible());
  EXPECT_EQ(panel->button2.Caption(), "Second");
  EXPECT_EQ(placeOf(panel->button), placeOf(panel->button2));
  EXPECT_EQ(panel->d.Top() - panel->button.Top(), 400) << "what is not shown takes no row";
}

TEST_F(FormTest, AGroupStandsOnItsHolderWhereverItBegins) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .row(at.label1, "l1", at.a, "ctr_a")
        .group(at.picture, {{&at.options.at(0), "o0"}, {&at.options.at(1), "o1"}})
        .row(at.label2, "l2", at.b, "ctr_b");
  });
  EXPECT_EQ(panel->picture.Top() - panel->a.Top(), 400);
  EXPECT_EQ(panel->options(0).Top(), panel->picture.Top());
  EXPECT_EQ(panel->options(1).Top() - panel->options(0).Top(), 400);
  EXPECT_EQ(panel->picture.Height(), 800);
  EXPECT_EQ(panel->b.Top() - panel->options(1).Top(), 400);
  panel->options(0).click();
  panel->options(1).click();
  EXPECT_FALSE(panel->options(0).Value());
}

TEST_F(FormTest, APanelTakesTheRestOfTheFrame) {
  declare([](Panel& at, Form& form) { form.frame(at.frame1, "one").row(at.label1, "l1", at.a, "ctr_a").panel(at.nested, "live"); });
  EXPECT_EQ(placeOf(panel->nested), Place(0, panel->a.Top() + 400, panel->width(), panel->height() - panel->a.Top() - 400));
  EXPECT_EQ(panel->nested.kind(), Control::Kind::Nested);
  EXPECT_EQ(panel->nested.className(), "CtrMonitoring");
}

TEST_F(FormTest, AControlMayFillTheFrameOrThePanel) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").row(at.label1, "l1", at.a, "ctr_a").fill(at.list, "list");
    form.fill(at.picture, "picture");
  });
  EXPECT_EQ(panel->list.Top(), panel->a.Top() + 400);
  EXPECT_LE(panel->list.Top() + panel->list.Height(), panel->height());
  EXPECT_LE(panel->list.Left() + panel->list.Width(), panel->width());
  EXPECT_EQ(placeOf(panel->picture), Place(0, 0, panel->width(), panel->height()));
}

TEST_F(FormTest, TablesShareTheFrame) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").table(at.list, "list", {{"c1", 100}, {"c2", 200}}, 2).table(at.list2, "list2", {}, 2);
  });
  EXPECT_EQ(panel->list.ColumnCount(), 2);
  EXPECT_EQ(panel->list.HeaderTag(2), "c2");
  EXPECT_EQ(panel->list.ColumnWidth(2), 200);
  EXPECT_GE(panel->list2.Top(), panel->list.Top() + panel->list.Height());
  EXPECT_LE(panel->list2.Top() + panel->list2.Height(), panel->height());
}

TEST_F(FormTest, ArraysMayHaveHoles) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").row(at.holes.at(1), "ctr_1").row(at.holes.at(4), "ctr_4").row(at.holes.next(), "ctr_5");
  });
  EXPECT_EQ(panel->holes.size(), 6);
  EXPECT_FALSE(panel->holes.has(0));
  EXPECT_TRUE(panel->holes.has(1));
  EXPECT_FALSE(panel->holes.has(-1));
  EXPECT_FALSE(panel->holes.has(6));
  EXPECT_EQ(panel->holes(4).name(), "holes(4)");
  for (int index : {-1, 0, 2, 6}) EXPECT_EQ(errorOf([&] { panel->holes(index); }), 9) << index;
  std::vector<int> visited;
  panel->holes.each([&](int index, CtrTextEdit& edit) {
    visited.push_back(index);
    EXPECT_EQ(edit.Tag(), "ctr_" + std::to_string(index));
  });
  EXPECT_THAT(visited, ElementsAre(1, 4, 5));
}

// The rows of a block as text: "label: cell cell", a column's number before its controls, stacked ones with "/".
std::vector<std::string> rowsOf(const FormBlock& block) {
  std::vector<std::string> rows;
  for (const FormRow& row : block.rows) {
    std::string& text = rows.emplace_back(row.heads ? "heads " : row.share ? "share " + std::to_string(row.share) + " " : "");
    if (row.label) text += row.label->name();
    text += ":";
    for (const FormCell& cell : row.cells) {
      text += " " + std::to_string(cell.column);
      for (const Control* control : cell.controls) text += (control == cell.controls.front() ? " " : "/") + control->name();
    }
  }
  return rows;
}

TEST_F(FormTest, KeepsWhatWasDeclared) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .title(at.title, "one")
        .stamp(at.stamp, "date_one")
        .hidden(at.d, "ctr_d")
        .heads(at.label2, "corner", {{&at.head1, "h1"}, {&at.head2, "h2"}})
        .row(at.label1, "l1", at.a, "ctr_a")
        .cell(at.b, "ctr_b")
        .row(at.options.at(3), "o3")
        .skip()
        .cell(at.c, "ctr_c")
        .button(at.button, "first", "First")
        .over(at.button2, "second", "Second");
    form.frame(at.frame2, "two").table(at.list, "list", {}, 2).table(at.list2, "list2", {}, 2);
    form.nested(at.nested, "live");
  });
  const FormFrame& one = *panel->formOf(&panel->frame1);
  EXPECT_EQ(one.title, &panel->title);
  EXPECT_EQ(one.stamp, &panel->stamp);
  EXPECT_TRUE(one.writes);
  ASSERT_EQ(one.blocks.size(), 1u);
  const FormBlock& block = one.blocks.front();
  EXPECT_THAT(rowsOf(block), ElementsAre(": 1 d", "heads label2: 1 head1 2 head2", "label1: 1 a 2 b", ": 1 options(3) 3 c", ": 1 button/button2"));
  EXPECT_EQ(block.headOf(block.rows[2], block.rows[2].cells[1]), &panel->head2);
  EXPECT_EQ(block.headOf(block.rows[3], block.rows[3].cells[1]), nullptr) << "the third column has no head";
  EXPECT_EQ(block.headOf(block.rows[0], block.rows[0].cells[0]), nullptr) << "it stands above the heads";
  const FormFrame& two = *panel->formOf(&panel->frame2);
  EXPECT_FALSE(two.writes);
  EXPECT_THAT(rowsOf(two.blocks.front()), ElementsAre("share 1 : 0 list", "share 1 : 0 list2"));
  EXPECT_THAT(rowsOf(panel->formOf(&panel->nested)->blocks.front()), ElementsAre("share 1 : 0 nested"));
  EXPECT_EQ(panel->formOf(nullptr), nullptr);
}

TEST_F(FormTest, AComponentWithoutFramesHasRowsToo) {
  declare([](Panel& at, Form& form) { form.rows().labelled(at.label1, "l1").skip().cell(at.a, "ctr_a").fill(at.list, "list"); });
  EXPECT_THAT(rowsOf(panel->formOf(nullptr)->blocks.front()), ElementsAre("label1: 2 a", "share 1 : 0 list"));
  EXPECT_EQ(panel->a.frame(), nullptr);
  EXPECT_EQ(panel->front(), nullptr);
  EXPECT_EQ(panel->label1.Top(), panel->a.Top());
}

TEST_F(FormTest, BlocksStandSideBySide) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .title(at.title, "one")
        .split({3, 1})
        .row(at.label1, "l1", at.a, "ctr_a")
        .beside()
        .fill(at.list, "list")
        .over(at.list2, "list2");
  });
  const FormFrame& one = *panel->formOf(&panel->frame1);
  ASSERT_EQ(one.blocks.size(), 2u);
  EXPECT_EQ(one.blocks[0].share, 3);
  EXPECT_THAT(rowsOf(one.blocks[0]), ElementsAre("label1: 1 a"));
  EXPECT_THAT(rowsOf(one.blocks[1]), ElementsAre("share 1 : 0 list/list2"));
  EXPECT_GE(panel->list.Left(), panel->width() * 3 / 4);
  EXPECT_LE(panel->list.Left() + panel->list.Width(), panel->width());
  EXPECT_EQ(panel->list.Top(), panel->a.Top());
  EXPECT_FALSE(panel->list2.Visible());
}

TEST_F(FormTest, ControlsOfAStripShareTheRestOfTheBlockWithoutAGap) {
  declare([](Panel& at, Form& form) { form.rows().row(at.label1, "l1", at.a, "ctr_a").strip({{&at.list, 1}, {&at.list2, 3}}); });
  EXPECT_THAT(rowsOf(panel->formOf(nullptr)->blocks.front()), ElementsAre("label1: 1 a", "share 1 : 0 list 1 list2"));
  EXPECT_EQ(panel->list.Left() + panel->list.Width(), panel->list2.Left());
  EXPECT_NEAR(panel->list2.Width(), 3 * panel->list.Width(), 3);
  EXPECT_EQ(panel->list.Top(), panel->list2.Top());
  EXPECT_EQ(panel->list.Height(), panel->height() - panel->list.Top() - panel->list.Left());
}

TEST_F(FormTest, OptionsStandInOneRowAndKnowEachOther) {
  declare([](Panel& at, Form& form) { form.rows().options(at.label1, "l1", {{&at.options.at(0), "o0"}, {&at.options.at(1), "o1"}}); });
  EXPECT_THAT(rowsOf(panel->formOf(nullptr)->blocks.front()), ElementsAre("label1: 1 options(0) 2 options(1)"));
  panel->options(0).click();
  panel->options(1).click();
  EXPECT_FALSE(panel->options(0).Value());
}

TEST_F(FormTest, AHiddenPanelIsMadeAndTakesNoRoom) {
  declare([](Panel& at, Form& form) { form.hidden(at.nested, "live"); });
  EXPECT_FALSE(panel->nested.Visible());
  EXPECT_EQ(panel->nested->tag(), "live");
  EXPECT_EQ(panel->front(), nullptr);
  EXPECT_EQ(panel->formOf(nullptr), nullptr);
}

TEST_F(FormTest, EachFrameThatWritesHasItsPairOfFocusTransfers) {
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one").row(at.label1, "l1", at.a, "ctr_a").button(at.button, "accept", "Accept");
    form.frame(at.frame2, "two").title(at.title, "two").button(at.button2, "reset", "Reset").row(at.label2, "l2", at.b, "ctr_b");
  });
  EXPECT_THAT(panel->names(), ElementsAre("frame1", "CtrFocusTransfer1", "label1", "a", "button", "CtrFocusTransfer2", "frame2", "title",
                                          "CtrFocusTransfer3", "button2", "label2", "b", "CtrFocusTransfer4"));
  for (const Control* control : panel->controls()) {
    if (!control->name().starts_with("CtrFocusTransfer")) continue;
    EXPECT_EQ(control->kind(), Control::Kind::NoData);
    EXPECT_EQ(control->owner(), panel.get());
    EXPECT_EQ(control->frame(), control->name() < "CtrFocusTransfer3" ? &panel->frame1 : &panel->frame2);
  }
}

TEST_F(FormTest, WhatAFormDeclaresIsNotProbed) {
  RecordingProbe probe;
  probe.readings = true;
  desktop.setProbe(&probe);
  declare([](Panel& at, Form& form) {
    form.frame(at.frame1, "one")
        .title(at.title, "one")
        .stamp(at.stamp, "date_one")
        .row(at.label1, "l1", at.a, "ctr_a")
        .hidden(at.b, "ctr_b")
        .group(at.picture, {{&at.options.at(0), "o0"}})
        .button(at.button, "accept", "Accept");
  });
  EXPECT_THAT(probe.calls.take(), ElementsAre());
  panel->a.Tag();
  EXPECT_THAT(probe.calls.take(), ElementsAre("a.Tag?"));
  desktop.setProbe(nullptr);
}

}  // namespace
}  // namespace ostrand
