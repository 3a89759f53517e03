#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/controls/CtrTextEdit.h"
#include "support/FakeMessenger.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

namespace {

using modView::TabPosition;

// Three edits of a view whose first and last send the focus out, and a place beside the panel where it may go.
class TabTest : public PanelBench {
 protected:
  TabTest() {
    view = TestView::place(desktop, [this](TestView& at, Form& form) {
      for (const char* name : {"one", "two", "three"}) edits.push_back(&at.make<CtrTextEdit>(name));
      at.frame(form, "key", "date_key")
          .row(at.make<Label>("lbl1"), "first", *edits[0], "ctr_one")
          .row(at.make<Label>("lbl2"), "second", *edits[1], "ctr_two")
          .row(at.make<Label>("lbl3"), "third", *edits[2], "ctr_three");
    });
    messenger = Ref<FakeMessenger>(new FakeMessenger(calls));
    view->SetMessenger(messenger);
    calls.take();
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }
  ~TabTest() override {
    panel.setView(nullptr);
    view->Terminate();
  }
  // As a view declares it.
  void leaveAtTheEdges() {
    edits[0]->LostFocus.connect([this] { view->leaveByTab("one_LostFocus", TabPosition::First); });
    edits[2]->LostFocus.connect([this] { view->leaveByTab("three_LostFocus", TabPosition::Last); });
  }
  void tab() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    settle();
  }
  void backtab() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    settle();
  }

  FakeCalls calls;
  Ref<FakeMessenger> messenger;
  Ref<TestView> view;
  std::vector<CtrTextEdit*> edits;
};

}  // namespace

TEST_F(TabTest, TheOrderIsTheDeclaredOne) {
  ASSERT_TRUE(panel.enter());
  EXPECT_EQ(focusedControl(), "one");
  tab();
  EXPECT_EQ(focusedControl(), "two");
  EXPECT_EQ(view->focused(), edits[1]);
  tab();
  EXPECT_EQ(focusedControl(), "three");
  backtab();
  EXPECT_EQ(focusedControl(), "two");
}

TEST_F(TabTest, DisabledHiddenAndControlsWithoutATabStopArePassedOver) {
  ASSERT_TRUE(panel.enter());
  edits[1]->TabStop(false);
  settle();
  tab();
  EXPECT_EQ(focusedControl(), "three");
  edits[1]->TabStop(true);
  edits[1]->Enabled(false);
  settle();
  backtab();
  EXPECT_EQ(focusedControl(), "one");
}

TEST_F(TabTest, TheViewSendsTheFocusOutAtItsEdges) {
  leaveAtTheEdges();
  ASSERT_TRUE(panel.enter());
  tab();
  EXPECT_EQ(calls.take(), std::vector<std::string>{}) << "forward from the first stays inside";
  tab();
  tab();
  EXPECT_EQ(calls.take(), std::vector<std::string>{"FocusOut"});
  EXPECT_EQ(tabbedOut, std::vector<bool>{true}) << "nobody moved the focus when the view asked";

  ASSERT_TRUE(panel.enter(false));
  EXPECT_EQ(focusedControl(), "three");
  backtab();
  EXPECT_EQ(calls.take(), std::vector<std::string>{}) << "backwards from the last stays inside";
  backtab();
  backtab();
  EXPECT_EQ(calls.take(), std::vector<std::string>{"FocusOut"});
}

TEST_F(TabTest, WhoMovesTheFocusWhenTheViewAsksHasIt) {
  leaveAtTheEdges();
  QWidget window;
  QVBoxLayout layout(&window);
  QLineEdit beside;
  panel.setParent(&window);
  layout.addWidget(&panel);
  layout.addWidget(&beside);
  panel.show();
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  calls.during("FocusOut", [&] { beside.setFocus(); });
  edits[2]->SetFocus();
  settle();
  EXPECT_EQ(focusedControl(), "three");
  tab();
  EXPECT_TRUE(beside.hasFocus());
  EXPECT_EQ(view->focused(), nullptr);
  EXPECT_TRUE(tabbedOut.empty());
  panel.setParent(nullptr);
}

TEST_F(TabTest, EachControlHearsOnceThatItIsLeftAndWhatWasTypedIsApplied) {
  int lost = 0;
  std::string then;
  edits[0]->LostFocus.connect([&] {
    ++lost;
    then = edits[0]->Text();
  });
  ASSERT_TRUE(panel.enter());
  QTest::keyClicks(QApplication::focusWidget(), "abc");
  tab();
  EXPECT_EQ(lost, 1);
  EXPECT_EQ(then, "abc");
  EXPECT_EQ(edits[0]->Text(), "abc");
}

TEST_F(TabTest, AViewThatDoesNotAskIsLeftAllTheSame) {
  ASSERT_TRUE(panel.enter(false));
  tab();
  EXPECT_EQ(tabbedOut, std::vector<bool>{true});
  EXPECT_EQ(focusedControl(), "three") << "until somebody takes the focus";
  EXPECT_EQ(view->focused(), edits[2]);
}

TEST_F(TabTest, TheFocusFollowsTheView) {
  edits[2]->SetFocus();
  settle();
  EXPECT_EQ(focusedControl(), "three");
}

}  // namespace ostrand::test
