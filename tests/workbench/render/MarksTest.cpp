#include <QLabel>

#include "anyedit/CtrAnyEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "support/FakeMessenger.h"
#include "workbench/render/RenderBench.h"
#include "workbench/render/Words.h"

namespace ostrand::test {

namespace {

// An editor of one value beside a field.
class MarksTest : public PanelBench {
 protected:
  MarksTest() {
    view = TestView::place(desktop, [](TestView& at, Form& form) {
      at.frame(form, "one", "date_one")
          .row(at.make<Label>("lbl"), "label", at.make<CtrTextEdit>("edit"), "ctr_x")
          .panel(at.make<Nested<CtrAnyEdit>>("cae"), "sample1");
    });
    any().SetMessenger(messenger);
    any().AddAny("a");
    any().SetOfflineData(dataSet(
        parameterXml("a", "1", "type=\"floatVal\" unit=\"Nm\" decimals=\"1\" minVal=\"0\" maxVal=\"10\" access=\"readWrite\" synchronised=\"1\"")));
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }
  ~MarksTest() override {
    panel.setView(nullptr);
    settle();
    view->Terminate();
  }
  CtrAnyEdit& any() { return *view->get<Nested<CtrAnyEdit>>("cae"); }
  QLabel* mark(int index) { return widget("cae")->findChildren<QLabel*>().at(index); }
  QString shown() { return mark(0)->text() + "|" + mark(1)->text(); }

  FakeCalls calls;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view;
};

}  // namespace

TEST_F(MarksTest, AreShownAsTheValueIsEditedAndWrong) {
  EXPECT_EQ(shown(), "|");
  any().VerifyEdit("a", "2");
  settle();
  EXPECT_EQ(shown(), "|*");
  any().VerifyEdit("a", "20");
  settle();
  EXPECT_EQ(shown(), "!|*");
  any().VerifyEdit("a", "1");
  settle();
  EXPECT_EQ(shown(), "|");
}

TEST_F(MarksTest, HaveTheColoursOfTheirStatesInEachTheme) {
  for (const auto kind : {Theme::Kind::Light, Theme::Kind::Dark}) {
    const Theme theme = Theme::make(kind);
    use(theme);
    settle();
    EXPECT_EQ(mark(0)->palette().color(QPalette::WindowText), theme.error);
    EXPECT_EQ(mark(1)->palette().color(QPalette::WindowText), theme.edited);
  }
}

TEST_F(MarksTest, KeepTheirPlace) {
  const QRect before = mark(0)->geometry();
  const int width = widget("cae")->width();
  any().VerifyEdit("a", "20");
  settle();
  EXPECT_EQ(mark(0)->geometry(), before);
  EXPECT_EQ(widget("cae")->width(), width);
}

TEST_F(MarksTest, TellWhatTheyMean) {
  const auto& control = view->get<Nested<CtrAnyEdit>>("cae");
  EXPECT_EQ(panel.explanation(control), "");
  any().VerifyEdit("a", "20");
  EXPECT_EQ(panel.explanation(control), word(PanelWord::Wrong, panel.language()) + ", " + word(PanelWord::Edited, panel.language()));
}

TEST_F(MarksTest, AComponentThatEndsLeavesThemStanding) {
  view->Terminate();
  settle();
  EXPECT_EQ(shown(), "|");
}

}  // namespace ostrand::test
