#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/Timer.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

namespace {

// A control of a kind that has no renderer.
class Gauge : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "Gauge"; }

 protected:
  Kind ownKind() const override { return Kind::NoData; }
};

class LifetimeTest : public PanelBench {
 protected:
  Ref<TestView> make() {
    return TestView::place(desktop, [](TestView& at, Form& form) {
      at.frame(form, "one", "date_one")
          .row(at.make<Label>("lblEdit"), "label", at.make<CtrTextEdit>("edit"), "ctr_x")
          .button(at.make<CommandButton>("button"), "go", "Go");
      at.frame(form, "two", "date_two").row(at.make<Label>("lblOther"), "label", at.make<CtrTextEdit>("other"), "ctr_y");
    });
  }
};

}  // namespace

TEST_F(LifetimeTest, AViewLivesAsLongAsItIsShownAndNoLonger) {
  const int before = TestView::ended;
  Ref<TestView> view = make();
  panel.setView(Ref<ITaviView>(view.get()));
  view->Terminate();
  view = nullptr;
  settle();
  EXPECT_EQ(TestView::ended, before);
  EXPECT_NE(widget("edit"), nullptr);
  panel.setView(nullptr);
  settle();
  EXPECT_EQ(TestView::ended, before + 1);
  EXPECT_TRUE(panel.shownControls().empty());
}

TEST_F(LifetimeTest, AViewMayBeReplacedInTheMiddleOfItsHandler) {
  const int before = TestView::ended;
  Ref<TestView> view = make();
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  auto& button = view->get<CommandButton>("button");
  bool reached = false;
  button.Click.connect([&] {
    panel.setView(nullptr);
    view->Terminate();
    view = nullptr;
    settle();  // events are pumped while the handler still runs
    EXPECT_EQ(TestView::ended, before) << "held by who runs the handler";
    reached = true;
  });
  QTest::mouseClick(widget(button), Qt::LeftButton);
  EXPECT_TRUE(reached);
  settle();
  EXPECT_EQ(TestView::ended, before + 1);
}

TEST_F(LifetimeTest, AFieldThatIsLeftMayBringAnotherView) {
  Ref<TestView> first = make(), second = make();
  panel.setView(Ref<ITaviView>(first.get()));
  settle();
  first->get<CtrTextEdit>("edit").Change.connect([&](const std::string&) { panel.setView(Ref<ITaviView>(second.get())); });
  widget("edit")->setFocus();
  QTest::keyClicks(widget("edit"), "x");
  QTest::keyClick(widget("edit"), Qt::Key_Tab);
  settle();
  EXPECT_EQ(panel.view().get(), static_cast<ITaviView*>(second.get()));
  EXPECT_EQ(second->get<CtrTextEdit>("edit").Text(), "");
}

TEST_F(LifetimeTest, AChangeAfterwardsReachesNobody) {
  Ref<TestView> view = make();
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  panel.setView(nullptr);
  settle();
  EXPECT_FALSE(view->get<CtrTextEdit>("edit").changed.hasListeners());
  EXPECT_FALSE(view->changed.hasListeners());
}

TEST_F(LifetimeTest, TheFrameInFrontIsShownAndTypingIsKeptInTheOther) {
  Ref<TestView> view = make();
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  EXPECT_NE(widget("edit"), nullptr);
  EXPECT_EQ(widget("other"), nullptr);
  view->SetSelectedView("two");
  settle();
  EXPECT_EQ(widget("edit"), nullptr);
  ASSERT_NE(widget("other"), nullptr);
  EXPECT_TRUE(widget("other")->isVisible());
  view->SetSelectedView("one");
  settle();
  EXPECT_TRUE(widget("edit")->isVisible());
}

TEST_F(LifetimeTest, WhatNobodyKnowsIsNotShownAndDoesNoHarm) {
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    at.frame(form, "one", "date_one")
        .row(at.make<Label>("lbl"), "label", at.make<Gauge>("gauge"), "gauge")
        .row(at.make<Timer>("timer"), "")
        .hidden(at.make<CtrOptionEdit>("option"), "ctr_option");
  });
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  EXPECT_EQ(widget("gauge"), nullptr);
  EXPECT_EQ(widget("timer"), nullptr);
  EXPECT_EQ(widget("option"), nullptr);
  EXPECT_NE(widget("lbl"), nullptr);
}

TEST_F(LifetimeTest, PlainControlsWork) {
  CheckBox* box = nullptr;
  Slider* slider = nullptr;
  TextBox* text = nullptr;
  std::vector<OptionButton*> options;
  Ref<TestView> view = TestView::place(desktop, [&](TestView& at, Form& form) {
    box = &at.make<CheckBox>("box");
    slider = &at.make<Slider>("slider");
    slider->designRange(0, 100, 5, 20);
    text = &at.make<TextBox>("text");
    for (const char* name : {"a", "b", "c"}) options.push_back(&at.make<OptionButton>(name));
    at.frame(form, "one", "date_one")
        .row(*box, "box")
        .row(*slider, "")
        .row(*text, "ctr_t")
        .group(at.make<PictureBox>("holder"), {{options[0], "a"}, {options[1], "b"}, {options[2], "c"}});
  });
  text->Text("shown");
  box->Caption("Tick & go");
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  QTest::keyClick(widget("box"), Qt::Key_Space);
  settle();
  EXPECT_TRUE(box->Value());
  EXPECT_EQ(widget<QCheckBox>("box")->text(), "Tick && go");
  EXPECT_EQ(widget<QLabel>("text")->text(), "shown");

  QTest::keyClick(widget("slider"), Qt::Key_Right);
  QTest::keyClick(widget("slider"), Qt::Key_PageUp);
  settle();
  EXPECT_EQ(slider->Value(), 25);
  slider->Value(60);
  settle();
  EXPECT_EQ(widget<QSlider>("slider")->value(), 60);

  widget("a")->setFocus();
  QTest::keyClick(widget("a"), Qt::Key_Space);
  settle();
  EXPECT_TRUE(options[0]->Value());
  QTest::keyClick(widget("a"), Qt::Key_Down);
  settle();
  EXPECT_TRUE(options[1]->Value());
  EXPECT_FALSE(widget<QRadioButton>("a")->isChecked());
  EXPECT_TRUE(widget<QRadioButton>("b")->isChecked());
  EXPECT_EQ(focusedControl(), "b");
  QTest::mouseClick(widget("b"), Qt::LeftButton, Qt::NoModifier, QPoint(10, widget("b")->height() / 2));
  settle();
  EXPECT_TRUE(widget<QRadioButton>("b")->isChecked()) << "a second click does not switch it off";
}

TEST_F(LifetimeTest, ATextBoxIsTypedIntoWhereSomebodyListens) {
  TextBox* search = nullptr;
  Ref<TestView> view = TestView::place(desktop, [&](TestView& at, Form& form) {
    search = &at.make<TextBox>("search");
    at.frame(form, "one", "date_one").row(at.make<Label>("lbl"), "label", *search, "");
  });
  std::vector<std::string> heard;
  search->Change.connect([&](const std::string& text) { heard.push_back(text); });
  panel.setView(Ref<ITaviView>(view.get()));
  settle();
  widget("search")->setFocus();
  QTest::keyClicks(widget("search"), "ab");
  EXPECT_EQ(heard, (std::vector<std::string>{"a", "ab"}));
  QTest::keyClick(widget("search"), Qt::Key_Escape);
  settle();
  EXPECT_EQ(search->Text(), "");
  EXPECT_EQ(widget<QLineEdit>("search")->text(), "");
}

}  // namespace ostrand::test
