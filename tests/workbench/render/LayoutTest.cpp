#include "platform/controls/CtrTextEdit.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

namespace {

class LayoutTest : public PanelBench {
 protected:
  void show(TestView::Declare declare) {
    view = TestView::place(desktop, std::move(declare));
    for (Control* control : view->controls())
      if (auto* label = dynamic_cast<Label*>(control)) label->Caption(label->name());
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }
  QRect place(const std::string& name) {
    QWidget* const at = widget(name);
    return at ? QRect(at->mapTo(panel.widget(), QPoint()), at->size()) : QRect();
  }
  Control& control(const char* name) { return view->get<Control>(name); }

  Ref<TestView> view;
};

}  // namespace

TEST_F(LayoutTest, AHiddenRowLeavesNoGap) {
  show([](TestView& at, Form& form) {
    FrameForm frame = at.frame(form, "one", "date_one");
    for (const char* name : {"1", "2", "3"})
      frame.row(at.make<Label>(std::string("lbl") + name), name, at.make<CtrTextEdit>(std::string("cte") + name), "");
  });
  const QRect second = place("cte2");
  ASSERT_LT(second.bottom(), place("cte3").top());
  control("lbl2").Visible(false);
  control("cte2").Visible(false);
  settle();
  EXPECT_EQ(place("cte2"), QRect());
  EXPECT_EQ(place("cte3").top(), second.top());
  control("cte2").Visible(true);
  settle();
  EXPECT_EQ(place("cte2").top(), second.top()) << "a row is there while anything of it is";
  EXPECT_GT(place("cte3").top(), second.bottom());
}

TEST_F(LayoutTest, WhatWasHiddenHasARowOnceItIsShown) {
  show([](TestView& at, Form& form) {
    at.frame(form, "one", "date_one")
        .row(at.make<CtrTextEdit>("cte1"), "")
        .hidden(at.make<CtrTextEdit>("cte2"), "")
        .row(at.make<CtrTextEdit>("cte3"), "");
  });
  EXPECT_EQ(place("cte2"), QRect());
  const QRect third = place("cte3");
  control("cte2").Visible(true);
  settle();
  EXPECT_EQ(place("cte2").top(), third.top());
  EXPECT_GT(place("cte3").top(), place("cte2").bottom());
}

TEST_F(LayoutTest, StackedControlsStandOnOneSpot) {
  show([](TestView& at, Form& form) {
    at.frame(form, "one", "date_one")
        .row(at.make<Label>("lbl"), "l", at.make<CtrTextEdit>("cte1"), "")
        .over(at.make<CtrTextEdit>("cte2"), "")
        .cell(at.make<CtrTextEdit>("cte3"), "");
  });
  const QRect first = place("cte1"), beside = place("cte3");
  control("cte1").Visible(false);
  control("cte2").Visible(true);
  settle();
  EXPECT_EQ(place("cte2"), first);
  EXPECT_EQ(place("cte3"), beside);
}

TEST_F(LayoutTest, BlocksStandSideBySideAndShareTheWidth) {
  show([](TestView& at, Form& form) {
    at.frame(form, "one", "date_one")
        .split({3, 2})
        .fill(at.make<ListView>("chart"), "")
        .beside()
        .row(at.make<Label>("lbl"), "l", at.make<CtrTextEdit>("cte"), "")
        .table(at.make<ListView>("list1"), "", {{"c", 100}}, 2)
        .table(at.make<ListView>("list2"), "", {{"c", 100}}, 2);
  });
  const QRect chart = place("chart"), row = place("cte"), upper = place("list1"), lower = place("list2");
  EXPECT_EQ(chart.top(), row.top());
  EXPECT_LT(chart.right(), place("lbl").left());
  EXPECT_LT(row.bottom(), upper.top());
  EXPECT_LT(upper.bottom(), lower.top());
  EXPECT_NEAR(upper.height(), lower.height(), 1);
  EXPECT_NEAR(chart.bottom(), lower.bottom(), 2);
  EXPECT_LE(lower.right(), panel.widget()->rect().right());
  const int before = chart.width();
  panel.resize(panel.width() + 500, panel.height());
  settle();
  EXPECT_NEAR(place("chart").width() - before, 300, 2);
  EXPECT_NEAR(place("list1").width() - upper.width(), 200, 2);
}

TEST_F(LayoutTest, AFieldIsSpokenOfByItsRowAndTheHeadOfItsColumn) {
  show([](TestView& at, Form& form) {
    at.frame(form, "one", "date_one")
        .row(at.make<Label>("Above"), "a", at.make<CtrTextEdit>("cte0"), "")
        .heads({{&at.make<Label>("Low"), "low"}, {&at.make<Label>("High"), "high"}})
        .row(at.make<Label>("Limit"), "l", at.make<CtrTextEdit>("cte1"), "")
        .cell(at.make<CtrTextEdit>("cte2"), "");
  });
  EXPECT_EQ(widget("cte0")->accessibleName(), "Above");
  EXPECT_EQ(widget("cte1")->accessibleName(), "Limit, Low");
  EXPECT_EQ(widget("cte2")->accessibleName(), "Limit, High");
}

}  // namespace ostrand::test
