#include <gmock/gmock.h>

#include <QComboBox>

#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class LoopTestTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show("diagnostics", "loopTest"));
  }
  OutputBanner& banner(std::size_t device = 0) { return *window->banners()[device]; }
  void start() {
    typeInto("cteLoopTest", "12");
    clickOn("cmdLoopTest");
    ASSERT_TRUE(banner().isVisible());
    asked.clear();
  }
  Device& simulated() { return *workbench->current().host().communication().device(); }
};

TEST_F(LoopTestTest, ItIsStartedChangedAndStoppedByKeyboardAlone) {
  EXPECT_FALSE(banner().isVisible());
  typeInto("cteLoopTest", "12");
  tabTo("cmdLoopTest");
  press(Qt::Key_Space);
  settle();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("Remove the control loop from automatic control")));
  EXPECT_TRUE(banner().isVisible());
  EXPECT_THAT(banner().text().toStdString(), HasSubstr("QC-1201"));
  EXPECT_EQ(QApplication::focusWidget(), widget("cmdStopLoopTest")) << "one key stops it";
  asked.clear();

  typeInto("cteLoopTest", "8");
  tabTo("cmdLoopTest");
  press(Qt::Key_Return);
  settle();
  EXPECT_THAT(asked, IsEmpty()) << "another value asks nothing";
  EXPECT_EQ(deviceValue("loopTest", "loopTestValue").substr(0, 1), "8");

  tabTo("cmdStopLoopTest");
  press(Qt::Key_Space);
  settle();
  EXPECT_FALSE(banner().isVisible());
  EXPECT_THAT(asked, ElementsAre(HasSubstr("has ended")));
}

TEST_F(LoopTestTest, LeavingThePageAsksAndStops) {
  start();
  answer = UserPrompt::kStop;
  EXPECT_FALSE(show("measurement", "activeRecipe"));
  EXPECT_THAT(asked, ElementsAre(HasSubstr("Loop test")));
  EXPECT_EQ(window->page().frame, "loopTest");
  EXPECT_TRUE(banner().isVisible());
  answer = UserPrompt::kGoOn;
  EXPECT_TRUE(show("measurement", "activeRecipe"));
  EXPECT_FALSE(banner().isVisible()) << "the device has answered 0";
}

TEST_F(LoopTestTest, AViewThatIsGoneDoesNotEndTheWarning) {
  start();
  window->panel().setView(nullptr);
  workbench->host().views().release(*workbench->host().views().front());
  window->showFront();
  EXPECT_TRUE(banner().isVisible());
  workbench->current().host().connect(nullptr);
  banner().refresh();
  EXPECT_THAT(banner().text().toStdString(), HasSubstr("not connected"));
}

TEST_F(LoopTestTest, ASilentDeviceKeepsTheWarning) {
  start();
  simulated().setFault("silent", "");
  clickOn("cmdStopLoopTest");
  until([&] { return !workbench->current().status().answers(); });
  settle();
  EXPECT_TRUE(banner().isVisible());
  EXPECT_THAT(banner().text().toStdString(), HasSubstr("does not answer"));
  simulated().setFault("none", "");
  clickOn("cmdStopLoopTest");
  EXPECT_FALSE(banner().isVisible());
}

TEST_F(LoopTestTest, WhoGoesToAnotherDeviceIsTold) {
  start();
  simulated().setFault("silent", "");
  PlantDevice& before = workbench->current();
  ASSERT_TRUE(show(device("profibusBlade"), "measurement", "activeRecipe"));
  EXPECT_TRUE(until([&] { return !asked.empty() && asked.back().find("may still be forced") != std::string::npos; }));
  EXPECT_THAT(asked.back(), HasSubstr("QC-1201"));
  EXPECT_NE(&workbench->current(), &before);
  EXPECT_TRUE(banner().isVisible()) << "over the pages of the other device";
}

TEST_F(LoopTestTest, ClosingTheWindowTellsThatTheOutputMayStillBeForced) {
  start();
  answer = UserPrompt::kStop;
  EXPECT_FALSE(window->close());
  EXPECT_THAT(asked, ElementsAre(AllOf(HasSubstr("output may be forced"), HasSubstr("QC-1201"))));
}

TEST_F(LoopTestTest, AValueThatTheDeviceRefusesDrivesNothing) {
  simulated().setFault("refuse", "loopTest");
  typeInto("cteLoopTest", "12");
  clickOn("cmdLoopTest");
  EXPECT_FALSE(banner().isVisible());
}

TEST_F(LoopTestTest, ARefusalDuringATestKeepsTheWarning) {
  start();
  simulated().setFault("refuse", "loopTest");
  clickOn("cmdStopLoopTest");
  EXPECT_TRUE(banner().isVisible()) << "the device goes on with the value before";
}

TEST_F(LoopTestTest, ARefusedStopProvesNothingOfAValueThatWasNotAnswered) {
  simulated().setFault("silent", "");
  typeInto("cteLoopTest", "12");
  clickOn("cmdLoopTest");
  ASSERT_TRUE(until([&] { return !workbench->current().status().answers(); }));
  settle();
  ASSERT_TRUE(banner().isVisible());
  simulated().setFault("none", "");
  simulated().setFault("refuse", "loopTest");
  const char* const stop =
      "<communicationRequest name=\"loopTest\" access=\"write\"><item name=\"loopTestValue\" unit=\"mA\"><floatVal>0</floatVal></item></communicationRequest>";
  EXPECT_EQ(workbench->host().exchange().submit("", stop, "loopTest", "", 0, 0), "");
  settle();
  EXPECT_TRUE(workbench->current().status().answers());
  EXPECT_TRUE(banner().isVisible());
}

TEST_F(LoopTestTest, EachOfSixChannelsMustHaveAnsweredZero) {
  PlantDevice& optical = device("hartQX5");
  ASSERT_TRUE(show(optical, "diagnostics", "loopTest"));
  OutputWatch& watch = optical.outputs();
  typeInto("cteLoopTest(0)", "12");
  typeInto("cteLoopTest(5)", "8");
  clickOn("cmdLoopTest");
  ASSERT_TRUE(until([&] { return watch.mayBeForced(); }));
  settle();
  grab("six-channels");
  const auto stop = [&](const std::string& channel) {
    const std::string item = "<item name=\"" + channel + "LoopTestValue\" unit=\"mA\"><floatVal>0</floatVal></item>";
    const std::string request = "<communicationRequest name=\"loopTest\" access=\"write\">" + item + "</communicationRequest>";
    EXPECT_EQ(optical.host().exchange().submit("", request, "loopTest", "", 0, 0), "");
    settle();
  };
  stop("channel0");
  EXPECT_TRUE(watch.mayBeForced()) << "channel 5 goes on";
  stop("channel5");
  EXPECT_FALSE(watch.mayBeForced());

  typeInto("cteLoopTest(1)", "12");
  clickOn("cmdLoopTest");
  ASSERT_TRUE(watch.mayBeForced());
  clickOn("cmdStopLoopTest");
  EXPECT_FALSE(watch.mayBeForced());
}

class EventLogTest : public WindowBench {
 protected:
  void SetUp() override { open(); }
  std::string cell(const char* list, int row, int column) { return control<ListView>(list).Cell(row, column); }
};

TEST_F(EventLogTest, TheLogIsReadAndReset) {
  PlantDevice& transmitter = device("profibusBlade");
  ASSERT_TRUE(show(transmitter, "diagnostics", "eventLog"));
  window->transfers().readPage();
  settle();
  EXPECT_EQ(cell("lsvEventLog(0)", 1, 1), "Supply voltage too low");
  EXPECT_NE(cell("lsvEventLog(0)", 1, 2), "0");
  const std::string warnings = deviceValue("eventLog", "eventLogWarningCount01");

  ASSERT_TRUE(show(transmitter, "diagnostics", "resetingEventLog"));
  EXPECT_FALSE(widget("cmdReset")->isEnabled());
  tabTo("chkReset(0)");
  press(Qt::Key_Space);
  ASSERT_TRUE(widget("cmdReset")->isEnabled());
  clickOn("cmdReset");
  workbench->desktop().wait(1.5);
  settle();
  ASSERT_TRUE(show(transmitter, "diagnostics", "eventLog"));
  window->transfers().readPage();
  settle();
  EXPECT_EQ(deviceValue("eventLog", "eventLogErrorCount01"), "0");
  EXPECT_EQ(deviceValue("eventLog", "eventLogWarningCount01"), warnings) << "only what was ticked";
}

}  // namespace
}  // namespace ostrand::test
