#include <gmock/gmock.h>
#include <deque>

#include "platform/controls/CommandButton.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = ConversationLog::Kind;

// Asks before it is left, and waits when its button is clicked.
class AskingView : public View {
 public:
  AskingView() : View("AskingView", "diagnostics") {}

  CommandButton button{"cmdWait"};
  int clicks = 0;
  int nested = 0;
  int deepest = 0;

  bool LeaveSelectedView() override { return mMessenger->AskUser("loopTest", "loopTestExitWarning") == 4; }

 protected:
  void declare(Form& form) override {
    for (const char* const key : {"deviceStatus", "loopTest", "eventLog"})
      frame(form, key, std::string("date_") + key).button(mButtons.emplace_back("cmdStart"), "startTest", "Start");
    frame(form, "resetingEventLog", "date_eventLog").button(button, "reset", "Reset");
  }
  void initialize() override {
    View::initialize();
    button.Click.connect([this] {
      ++clicks;
      deepest = std::max(deepest, ++nested);
      desktop().wait(0.2);
      --nested;
    });
  }

 private:
  std::deque<CommandButton> mButtons;
};

class ChoosingTest : public WindowBench {
 protected:
  void SetUp() override {
    catalog.own["VwDiagnostics"] = [this] { return asking = new AskingView; };
    open();
  }
  QTreeWidgetItem* item(const std::string& branch, const std::string& frame) { return window->tree().itemOf({&workbench->current(), branch, frame}); }
  void click(QTreeWidgetItem* at) {
    window->tree().scrollToItem(at);
    QTest::mouseClick(window->tree().viewport(), Qt::LeftButton, {}, window->tree().visualItemRect(at).center());
  }

  AskingView* asking = nullptr;
};

TEST_F(ChoosingTest, TheTreeShowsWhatExistsAndWhatIsStillToCome) {
  std::string tree = readWholeFile(data / "tree.xml");
  tree.replace(tree.find("</treeView>"), 0, "<branch name=\"futureBranch\"><node name=\"futureFrame\"/></branch>");
  writeWholeFile(data / "tree.xml", tree);
  window.reset();
  open();
  EXPECT_TRUE(item("measurement", "activeRecipe")->flags() & Qt::ItemIsEnabled);
  EXPECT_EQ(item("measurement", "activeRecipe")->text(0), QStringLiteral("Active recipe"));
  EXPECT_FALSE(item("futureBranch", "futureFrame")->flags() & Qt::ItemIsEnabled);
  EXPECT_THAT(item("futureBranch", "futureFrame")->toolTip(0).toStdString(), HasSubstr("no view"));
  EXPECT_FALSE(show("futureBranch", "futureFrame"));
}

TEST_F(ChoosingTest, AClickOpensAFrame) {
  click(item("measurement", "monitoringVariables"));
  settle();
  EXPECT_EQ(window->page().frame, "monitoringVariables");
  EXPECT_TRUE(item("measurement", "monitoringVariables")->font(0).bold());
}

TEST_F(ChoosingTest, ArrowsAndEnterOpenAFrame) {
  window->tree().setFocus();
  window->tree().setCurrentItem(item("measurement", ""));
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  settle();
  EXPECT_EQ(window->page().frame, "activeRecipe");
}

TEST_F(ChoosingTest, AViewThatDoesNotWantToBeLeftStays) {
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  answer = UserPrompt::kStop;
  click(item("measurement", "activeRecipe"));
  settle();
  EXPECT_EQ(window->page().frame, "loopTest");
  EXPECT_EQ(window->tree().currentItem(), item("diagnostics", "loopTest")) << "the tree shows where the user is";
  EXPECT_THAT(asked, ElementsAre(HasSubstr("leave")));
  answer = UserPrompt::kGoOn;
  click(item("measurement", "activeRecipe"));
  settle();
  EXPECT_EQ(window->page().frame, "activeRecipe");
}

TEST_F(ChoosingTest, ASecondChoiceUnderAnOpenQuestionIsNotTaken) {
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  bool second = true;
  workbench->prompt().standIn = [&](const std::string&, const std::string&) {
    second = window->show({&workbench->current(), "measurement", "monitoringVariables"});
    return UserPrompt::kGoOn;
  };
  EXPECT_TRUE(show("measurement", "activeRecipe"));
  EXPECT_FALSE(second);
  EXPECT_EQ(window->page().frame, "activeRecipe");
}

TEST_F(ChoosingTest, ASecondClickDuringAWaitReachesTheView) {
  ASSERT_TRUE(show("diagnostics", "resetingEventLog"));
  QWidget* const button = widget("cmdWait");
  workbench->desktop().schedule(0.03, [&] { QTest::mouseClick(button, Qt::LeftButton); });
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(asking->clicks, 2);
  EXPECT_EQ(asking->deepest, 2);
  EXPECT_EQ(asking->nested, 0);
}

TEST_F(ChoosingTest, AnotherPageMayBeChosenDuringAWait) {
  ASSERT_TRUE(show("diagnostics", "resetingEventLog"));
  workbench->desktop().schedule(0.03, [&] { click(item("measurement", "activeRecipe")); });
  QTest::mouseClick(widget("cmdWait"), Qt::LeftButton);
  settle();
  EXPECT_EQ(window->page().frame, "activeRecipe");
  EXPECT_EQ(asking->nested, 0);
}

TEST_F(ChoosingTest, TheWindowClosesOnlyAfterAWait) {
  ASSERT_TRUE(show("diagnostics", "resetingEventLog"));
  bool visibleInWait = false;
  workbench->desktop().schedule(0.03, [&] {
    window->close();
    visibleInWait = window->isVisible();
  });
  QTest::mouseClick(widget("cmdWait"), Qt::LeftButton);
  EXPECT_TRUE(visibleInWait);
  EXPECT_TRUE(until([&] { return !window->isVisible(); }));
}

TEST_F(ChoosingTest, APageThatDoesNotWantToBeLeftKeepsTheWindowOpen) {
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  answer = UserPrompt::kStop;
  EXPECT_FALSE(window->close());
  EXPECT_THAT(asked, ElementsAre(HasSubstr("leave")));
}

}  // namespace
}  // namespace ostrand::test
