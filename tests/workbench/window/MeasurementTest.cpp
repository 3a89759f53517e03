#include <gmock/gmock.h>

#include <QComboBox>
#include <QPushButton>

#include "host/transcript/Replay.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrMonitoring.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Kind = ConversationLog::Kind;

class MeasurementTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show("measurement", "activeRecipe"));
  }
  QComboBox& recipes() { return *dynamic_cast<QComboBox*>(widget("cceActiveRecipe")); }
  CtrComboEdit& recipe() { return control<CtrComboEdit>("cceActiveRecipe"); }

  // Recipe 3 instead of 1, by the keyboard; it is not written yet.
  void editRecipe() {
    recipes().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
  }
  void writeByKeyboard() {
    press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), widget("cmdActiveRecipeSetButton"));
    press(Qt::Key_Space);
    settle();
  }
};

TEST_F(MeasurementTest, TheActiveRecipeIsSetByKeyboardAlone) {
  EXPECT_EQ(QApplication::focusWidget(), &recipes()) << "the view asks for the focus when it comes to front";
  editRecipe();
  EXPECT_EQ(recipe().Text(), "recipe3");
  EXPECT_TRUE(recipe().Modified());
  writeByKeyboard();
  EXPECT_FALSE(recipe().Modified());
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "3");
  EXPECT_THAT(said(Kind::User), Contains("click cmdActiveRecipeSetButton"));
  EXPECT_THAT(said(Kind::Request), Contains("DTMGUIDownload \"activeRecipe\" 1"));
  EXPECT_THAT(said(Kind::Data), Contains("online \"activeRecipe\""));
  EXPECT_THAT(said(Kind::Error), IsEmpty());
  grab("measurement");
}

TEST_F(MeasurementTest, TheActiveRecipeIsSetByMouse) {
  editRecipe();
  QTest::mouseClick(widget("cmdActiveRecipeSetButton"), Qt::LeftButton);
  settle();
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "3");
}

TEST_F(MeasurementTest, LiveValuesMoveWhileTheirPageIsInFront) {
  workbench->host().views().liveReading().setPeriod(0.05);
  ASSERT_TRUE(show("measurement", "monitoringVariables"));
  const auto answers = [&] {
    std::size_t count = 0;
    for (const std::string& line : said(Kind::Data)) count += line == "online \"monitoringVariables\"";
    return count;
  };
  EXPECT_TRUE(until([&] { return answers() >= 3; }));
  grab("live-values");
  ASSERT_TRUE(show("measurement", "activeRecipe"));
  const std::size_t before = answers();
  workbench->desktop().wait(10);
  EXPECT_LE(answers(), before + 1) << "what was under way may still come";
}

TEST_F(MeasurementTest, TabLeavesTheViewAtItsLastControlAndShiftTabAtItsFirst) {
  recipes().setFocus();
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), widget("cmdActiveRecipeSetButton")) << "forward from the first it stays inside";
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &window->conversation().list());
  EXPECT_THAT(said(Kind::Host), Contains("FocusOut"));

  recipes().setFocus();
  press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), &window->tree());
}

TEST_F(MeasurementTest, F6GoesFromTreeToViewToConversation) {
  window->tree().setFocus();
  press(Qt::Key_F6);
  EXPECT_TRUE(window->panel().isAncestorOf(QApplication::focusWidget()));
  press(Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), &window->conversation().list());
  press(Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), &window->tree());
  press(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), &window->conversation().list());
}

TEST_F(MeasurementTest, LanguageAndUnitsChangeUnderAnEditThatStays) {
  editRecipe();
  window->settingsMenu().setLanguage("fi");
  window->settingsMenu().setUnit("temperature", "degF");
  window->settingsMenu().setLocale("fi");
  settle();
  EXPECT_EQ(recipe().Text(), "recipe3");
  EXPECT_TRUE(recipe().Modified());
  EXPECT_EQ(recipes().currentText().toStdString(), workbench->host().user().textTable()->GetText("recipe3"));
  EXPECT_NE(recipes().currentText(), QStringLiteral("Recipe 3"));
  grab("measurement-fi");
  writeByKeyboard();
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "3");
}

TEST_F(MeasurementTest, UnitsChangeTheLiveValues) {
  ASSERT_TRUE(show("measurement", "monitoringVariables"));
  window->settingsMenu().setUnit("temperature", "degF");
  auto& monitoring = **dynamic_cast<Nested<CtrMonitoring>*>(&control<Control>("CtrMonitoring1"));
  auto& list = dynamic_cast<ListView&>(*monitoring.GetControls().front());
  std::vector<std::string> units;
  for (int row = 1; row <= list.Count(); ++row) units.push_back(list.Cell(row, 3));
  EXPECT_THAT(units, Contains("°F"));
  EXPECT_THAT(units, Not(Contains("°C")));
}

TEST_F(MeasurementTest, ALevelBelowThreeTakesTheButtonAwayAndSaysWhy) {
  window->settingsMenu().setLevel(2);
  EXPECT_FALSE(control<CommandButton>("cmdActiveRecipeSetButton").Enabled());
  EXPECT_THAT(window->panel().whyDisabled(control<Control>("cmdActiveRecipeSetButton")).toStdString(), HasSubstr("level 3"));
  window->settingsMenu().setLevel(3);
  EXPECT_TRUE(control<CommandButton>("cmdActiveRecipeSetButton").Enabled());
}

TEST_F(MeasurementTest, ClosingWithAnEditAsks) {
  editRecipe();
  answer = UserPrompt::kStop;
  EXPECT_FALSE(window->close());
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_THAT(asked[0], HasSubstr("nobody has saved"));
  answer = UserPrompt::kGoOn;
  EXPECT_TRUE(window->close());
}

TEST_F(MeasurementTest, ClosingWithoutEditsAsksNothing) {
  EXPECT_TRUE(window->close());
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(MeasurementTest, OpeningADataSetAsksOnlyForTheEditsOfItsDevice) {
  editRecipe();
  nextFile = data / "devices" / "profibusBlade.xml";
  window->dataSets().open();
  EXPECT_TRUE(asked.empty());
  EXPECT_TRUE(workbench->current().hasUnsavedValues());
  nextFile = data / "devices" / "hartBlade.xml";
  window->dataSets().open();
  ASSERT_EQ(asked.size(), 2u);
  EXPECT_THAT(asked[0], HasSubstr("nobody has saved"));
  EXPECT_THAT(asked[1], HasSubstr("but without: Active recipe")) << "it leaves by its button, and no file takes it";
}

TEST_F(MeasurementTest, AnEditIsUndone) {
  editRecipe();
  window->edits().undo();
  EXPECT_EQ(recipe().Text(), "recipe1");
  EXPECT_FALSE(recipe().Modified());
}

TEST_F(MeasurementTest, AllEditsAreDiscarded) {
  editRecipe();
  window->edits().discardAll();
  EXPECT_EQ(recipe().Text(), "recipe1");
  EXPECT_FALSE(workbench->current().hasPendingEdits());
}

// --- transcripts

TEST_F(MeasurementTest, TheSavedConversationReplaysGreen) {
  editRecipe();
  writeByKeyboard();
  window->transfers().readPage();
  settle();
  window->settingsMenu().setLevel(2);
  window->connection().setMode(10);
  window->settingsMenu().setLanguage("sv");
  ASSERT_TRUE(show("measurement", "monitoringVariables"));
  nextFile = data / "conversation.transcript";
  window->transcripts().save();
  const Replay::Result result = Replay(catalog, data).compare(*nextFile);
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
  EXPECT_THAT(readWholeFile(*nextFile), HasSubstr("> choose cceActiveRecipe"));
}

TEST_F(MeasurementTest, AnEditThatWasTakenBackReplaysGreen) {
  editRecipe();
  press(Qt::Key_Escape);
  EXPECT_FALSE(recipe().Modified());
  editRecipe();
  window->edits().undo();
  writeByKeyboard();
  nextFile = data / "undone.transcript";
  window->transcripts().save();
  const Replay::Result result = Replay(catalog, data).compare(*nextFile);
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
}

TEST_F(MeasurementTest, AConversationWithWaitsReplaysGreen) {
  for (const auto& device : workbench->devices()) {
    if (device->kind().name != "profibusBlade") continue;
    ASSERT_TRUE(window->show({device.get(), "measurement", "activeRecipe"}));
  }
  ASSERT_EQ(workbench->current().kind().name, "profibusBlade");
  settle();
  editRecipe();
  // The bus waits for the device; the user looks elsewhere meanwhile.
  workbench->desktop().schedule(0.3, [&] { window->show({&workbench->current(), "measurement", "monitoringVariables"}); });
  QTest::mouseClick(widget("cmdActiveRecipeSetButton"), Qt::LeftButton);
  settle();
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "3");
  EXPECT_EQ(window->page().frame, "monitoringVariables");
  nextFile = data / "waits.transcript";
  window->transcripts().save();
  const Replay::Result result = Replay(catalog, data).compare(*nextFile);
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
}

TEST_F(MeasurementTest, ARecordingBeginsWithANewViewAndReplaysGreen) {
  editRecipe();
  window->edits().undo();
  nextFile = data / "recorded.transcript";
  window->transcripts().record(true);
  settle();
  ASSERT_TRUE(window->transcripts().isRecording());
  editRecipe();
  writeByKeyboard();
  ASSERT_TRUE(show("information", "identification"));
  window->transcripts().record(false);
  const std::string text = readWholeFile(*nextFile);
  EXPECT_EQ(text.find("> create"), text.rfind("> create"));
  const Replay::Result result = Replay(catalog, data).compare(*nextFile);
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
}

}  // namespace
}  // namespace ostrand::test
