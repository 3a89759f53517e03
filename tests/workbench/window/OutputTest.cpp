#include <gmock/gmock.h>

#include <QPushButton>

#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class OutputTest : public WindowBench {
 protected:
  void SetUp() override { open(); }
  OutputBanner& bannerOf(const PlantDevice& of) {
    for (std::size_t i = 0; i < workbench->devices().size(); ++i)
      if (workbench->devices()[i].get() == &of) return *window->banners()[i];
    throw RuntimeError(RuntimeError::BadArgument, "no banner");
  }
  OutputBanner& banner() { return bannerOf(workbench->current()); }
  Device& simulated() { return *workbench->host().communication().device(); }
  void startLoopTest() {
    ASSERT_TRUE(show("diagnostics", "loopTest"));
    typeInto("cteLoopTest", "12");
    clickOn("cmdLoopTest");
    ASSERT_TRUE(banner().isVisible());
    asked.clear();
  }
  void loseTheView() {
    window->panel().setView(nullptr);
    workbench->host().views().release(*workbench->host().views().front());
    window->showFront();
  }
  // Goes on in what is asked by the window itself.
  void answerTheWindow() {
    workbench->prompt().standIn = [this](const std::string& title, const std::string& message) {
      asked.push_back(title + ": " + message);
      return title == "Something is still running" || title == "There are values that nobody has saved" ? UserPrompt::kGoOn : UserPrompt::kStop;
    };
  }
};

TEST_F(OutputTest, TheBannerFreesTheOutputAlsoWhenItsViewIsGone) {
  startLoopTest();
  grab("banner");
  loseTheView();
  QTest::mouseClick(&banner().freeButton(), Qt::LeftButton);
  settle();
  EXPECT_FALSE(banner().isVisible());
  EXPECT_EQ(deviceValue("loopTest", "loopTestValue").substr(0, 1), "0");
}

TEST_F(OutputTest, AnOutputThatWasNotFreedIsSaidSo) {
  startLoopTest();
  simulated().setFault("refuse", "loopTest");
  QTest::mouseClick(&banner().freeButton(), Qt::LeftButton);
  settle();
  ASSERT_TRUE(banner().isVisible());
  EXPECT_THAT(banner().text().toStdString(), HasSubstr("has not confirmed"));
  simulated().setFault("none", "");
  QTest::mouseClick(&banner().freeButton(), Qt::LeftButton);
  settle();
  EXPECT_FALSE(banner().isVisible());
}

TEST_F(OutputTest, StopAndCloseWaitsForTheConfirmation) {
  startLoopTest();
  answerTheWindow();
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible()) << "the device has not answered";
  EXPECT_TRUE(until([&] { return !window->isVisible(); }));
  EXPECT_FALSE(workbench->current().outputs().mayBeForced());
}

TEST_F(OutputTest, ADeviceThatDoesNotConfirmTheStopKeepsTheWindowOpen) {
  startLoopTest();
  simulated().setFault("silent", "");
  answerTheWindow();
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(until([&] { return !asked.empty() && asked.back().find("has not confirmed") != std::string::npos; }));
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(banner().isVisible());
}

TEST_F(OutputTest, TheSafeAnswerIsTheDefaultAndAnswersAreVerbs) {
  startLoopTest();
  workbench->prompt().standIn = nullptr;
  inDialog([](QWidget& dialog) {
    if (const char* const folder = std::getenv("OSTRAND_PICTURES")) dialog.grab().save(QString::fromLatin1(folder) + "/closing.png");
    QStringList answers;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>()) answers << button->text();
    EXPECT_EQ(answers, (QStringList{QStringLiteral("Stop it and close"), QStringLiteral("Close and leave it running"), QStringLiteral("Stay here")}));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(banner().isVisible());
}

TEST_F(OutputTest, AfterACleanStopNothingIsStillRunning) {
  startLoopTest();
  clickOn("cmdStopLoopTest");
  EXPECT_THAT(window->panel().whyDisabled(control<Control>("cmdStopLoopTest")).toStdString(), Not(HasSubstr("Not while")));
  asked.clear();
  EXPECT_TRUE(window->close());
  EXPECT_THAT(asked, Not(Contains(HasSubstr("running"))));
}

TEST_F(OutputTest, NoDocumentReachesThePageOfARunningTest) {
  startLoopTest();
  window->edits().discardAll();
  ASSERT_EQ(asked.size(), 1u) << "the reason, and no question before it";
  EXPECT_THAT(asked[0], AllOf(HasSubstr("stop the test first"), HasSubstr("QC-1201")));
  asked.clear();
  pump();
  workbench->host().dataSet()->edit("damping", "5.5");
  nextFile = workbench->host().dataSet()->file();
  QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
  pump();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_THAT(asked[0], HasSubstr("stop the test first"));
  EXPECT_EQ(workbench->host().dataSet()->offlineValue("damping"), "5.5");
  asked.clear();
  clickOn("cmdStopLoopTest");
  window->edits().discardAll();
  EXPECT_THAT(asked, Contains(HasSubstr("Discard all edits")));
  EXPECT_EQ(workbench->host().dataSet()->offlineValue("damping"), "");
}

TEST_F(OutputTest, WhoHasSeenASilentDeviceMayGoOnAndTheWarningStays) {
  startLoopTest();
  simulated().setFault("silent", "");
  clickOn("cmdStopLoopTest");
  ASSERT_TRUE(until([&] { return !workbench->current().status().answers(); }));
  settle();
  asked.clear();
  answer = UserPrompt::kStop;
  window->edits().discardAll();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_THAT(asked[0], HasSubstr("Look at the device itself"));
  EXPECT_TRUE(workbench->current().outputs().holdsDocuments());
  answer = UserPrompt::kGoOn;
  window->edits().discardAll();
  EXPECT_THAT(asked, Contains(HasSubstr("Discard all edits")));
  EXPECT_FALSE(workbench->current().outputs().holdsDocuments());
  EXPECT_TRUE(banner().isVisible()) << "the device has not said so";
}

TEST_F(OutputTest, AQuestionOfAPageIsAnsweredByWhatItsButtonsSay) {
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  typeInto("cteLoopTest", "12");
  workbench->prompt().standIn = nullptr;
  inDialog([](QWidget& dialog) {
    QStringList answers;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>())
      answers << button->text() + (button->isDefault() ? QStringLiteral("*") : QString());
    EXPECT_EQ(answers, (QStringList{QStringLiteral("Start the test"), QStringLiteral("Start nothing*")}));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  clickOn("cmdLoopTest");
  EXPECT_FALSE(workbench->current().outputs().mayBeForced());
}

TEST_F(OutputTest, ASampleThatRunsLeavesNothingToBeWritten) {
  PlantDevice& transmitter = device("profibusBlade");
  ASSERT_TRUE(show(transmitter, "calibration", "sampling"));
  clickOn("Sample1Button(0)");
  ASSERT_TRUE(until([&] { return transmitter.outputs().sampling(); }));
  settle();
  EXPECT_EQ(transmitter.waitingCount(), 0u) << "the device lets nobody write its samples";
  grab("sampling");
}

TEST_F(OutputTest, ASimulationIsWatchedAskedForAndFreed) {
  PlantDevice& block = device("profibusBlade");
  ASSERT_TRUE(show(block, "measurement", "activeRecipe"));
  const char* const on =
      "<communicationRequest name=\"simulation\" access=\"write\"><item name=\"simulation\" unit=\"noUnit\"><integerVal>1</integerVal></item></communicationRequest>";
  ASSERT_EQ(block.host().exchange().submit("", on, "simulation", "", 0, 0), "");
  settle();
  ASSERT_TRUE(bannerOf(block).isVisible());
  EXPECT_THAT(bannerOf(block).text().toStdString(), AllOf(HasSubstr(block.title()), HasSubstr("simulated")));
  grab("simulation");
  asked.clear();

  answer = UserPrompt::kStop;
  EXPECT_FALSE(show(device("hartBlade"), "measurement", "activeRecipe"));
  EXPECT_THAT(asked, Contains(AllOf(HasSubstr("simulated"), HasSubstr(block.title()))));
  EXPECT_EQ(&workbench->current(), &block);
  EXPECT_FALSE(window->close());

  QTest::mouseClick(&bannerOf(block).freeButton(), Qt::LeftButton);
  settle();
  EXPECT_FALSE(bannerOf(block).isVisible());
  EXPECT_EQ(deviceValue("simulation", "simulation"), "0");
}

TEST_F(OutputTest, ASampleIsStoppedAlsoWhenItsViewIsGone) {
  for (const char* const kind : {"hartBlade", "profibusBlade"}) {
    PlantDevice& transmitter = device(kind);
    ASSERT_TRUE(show(transmitter, "calibration", "sampling"));
    clickOn("Sample1Button(0)");
    ASSERT_TRUE(until([&] { return transmitter.outputs().sampling(); })) << kind;
    loseTheView();
    pump();
    ASSERT_TRUE(bannerOf(transmitter).isVisible()) << kind;
    QTest::mouseClick(&bannerOf(transmitter).stopButton(), Qt::LeftButton);
    settle();
    EXPECT_FALSE(bannerOf(transmitter).isVisible()) << kind;
  }
}

}  // namespace
}  // namespace ostrand::test
