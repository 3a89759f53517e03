#include "workbench/dialogs/WaitingDialog.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QToolBar>
#include <QTreeWidget>

#include "platform/base/NumberText.h"
#include "platform/controls/CtrTextEdit.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kDescription = "cteIdentification(1)";

class WaitingTest : public WindowBench {
 protected:
  enum Column { Value, Page, DeviceHas, New, Unit, Result };

  void SetUp() override {
    open();
    ASSERT_TRUE(show("information", "identification"));
  }
  DataSet& dataSet() { return *workbench->host().dataSet(); }
  // As the user asks for it.
  void review() {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_Return, Qt::ControlModifier);
    pump();
    ASSERT_TRUE(window->edits().waitingDialog());
  }
  WaitingDialog& dialog() { return *window->edits().waitingDialog(); }
  QTreeWidgetItem* row(const QString& parameter) {
    for (int i = 0; i < dialog().list().topLevelItemCount(); ++i)
      if (dialog().list().topLevelItem(i)->toolTip(Value) == parameter) return dialog().list().topLevelItem(i);
    return nullptr;
  }
  std::string text(const QString& parameter, Column column) { return row(parameter) ? row(parameter)->text(column).toStdString() : "no row"; }
  bool writes(const QString& parameter) {
    clickButton(dialog(), QStringLiteral("Write ticked to device"));
    return until([&] { return !workbench->host().exchange().transfer().running() && text(parameter, Result) != "Waiting"; });
  }
  std::string toolText(const QString& beginning) {
    for (const QAction* const action : window->findChild<QToolBar*>()->actions())
      if (action->iconText().startsWith(beginning)) return action->iconText().toStdString();
    return {};
  }
  bool isSaidBesideAValue(const QString& told) {
    window->panel().refresh();
    pump();
    for (const QLabel* const label : window->panel().findChildren<QLabel*>())
      if (label->isVisible() && label->text().contains(told)) return true;
    return false;
  }
};

TEST_F(WaitingTest, NothingIsWrittenBeforeTheListHasBeenSeenAndOnlyWhatIsTicked) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  dataSet().edit("damping", "5.5");
  review();
  grab("waiting-window");
  EXPECT_EQ(text("description", Page), "Identification");
  EXPECT_EQ(text("description", DeviceHas), "STOCK PREP LINE2");
  EXPECT_EQ(text("description", New), "LINE 3");
  EXPECT_EQ(text("damping", DeviceHas), "2.0");
  EXPECT_EQ(text("damping", New), "5.5");
  EXPECT_EQ(text("damping", Unit), "s");
  settle();
  EXPECT_EQ(dataSet().value("description"), "STOCK PREP LINE2") << "so far it has only been listed";

  row("damping")->setCheckState(Value, Qt::Unchecked);
  ASSERT_TRUE(writes("description"));
  EXPECT_EQ(text("description", Result), "Written");
  EXPECT_EQ(text("damping", Result), "");
  if (const char* const folder = std::getenv("OSTRAND_PICTURES")) dialog().grab().save(QString::fromLatin1(folder) + "/waiting.png");
  EXPECT_EQ(deviceValue("identification", "description"), "LINE 3");
  EXPECT_EQ(dataSet().offlineValue("damping"), "5.5") << "it goes on waiting";
}

TEST_F(WaitingTest, TheirNumberStandsAtTheButton) {
  EXPECT_EQ(toolText("Apply"), "Apply edits");
  dataSet().edit("damping", "5.5");
  typeInto(kDescription, QStringLiteral("LINE 3"));
  settle();
  EXPECT_EQ(toolText("Apply"), "Apply edits (2)");
}

TEST_F(WaitingTest, ARefusedRowSaysWhyAndIsTriedAgain) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  workbench->host().communication().device()->setFault("refuse", "identification hartCmdErrAccessRestricted");
  review();
  ASSERT_TRUE(writes("description"));
  EXPECT_EQ(text("description", Result), workbench->host().user().textTable()->GetText("hartCmdErrAccessRestricted"));
  EXPECT_EQ(row("description")->checkState(Value), Qt::Checked);
  workbench->host().communication().device()->setFault("none", "");
  ASSERT_TRUE(writes("description"));
  EXPECT_EQ(text("description", Result), "Written");
  EXPECT_EQ(deviceValue("identification", "description"), "LINE 3");
}

TEST_F(WaitingTest, WhatIsRefusedAtOnceDoesNotGoOnWaiting) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  review();
  workbench->host().connect(nullptr);
  clickButton(dialog(), QStringLiteral("Write ticked to device"));
  EXPECT_EQ(text("description", Result), "no device is connected");
  EXPECT_EQ(row("description")->checkState(Value), Qt::Checked) << "it can be tried again";
}

TEST_F(WaitingTest, WhatWasTypedSinceIsSeenBeforeItIsWritten) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  dataSet().edit("damping", "5.5");
  review();
  row("description")->setCheckState(Value, Qt::Unchecked);
  dataSet().edit("damping", "7.0");
  clickButton(dialog(), QStringLiteral("Write ticked to device"));
  EXPECT_EQ(text("damping", New), "7.0");
  EXPECT_THAT(text("damping", Result), HasSubstr("Typed since"));
  settle();
  EXPECT_EQ(dataSet().value("damping"), "2.0") << "nothing has left";
  ASSERT_TRUE(writes("damping"));
  EXPECT_EQ(text("damping", Result), "Written");
}

TEST_F(WaitingTest, WhatIsDroppedIsShownAsTheDeviceHasIt) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  dataSet().edit("damping", "5.5");
  review();
  clickButton(dialog(), QStringLiteral("Drop ticked"));
  EXPECT_EQ(text("description", Result), "Dropped");
  EXPECT_FALSE(workbench->current().hasPendingEdits());
  EXPECT_EQ(control<CtrTextEdit>(kDescription).displayText(), "STOCK PREP LINE2");
}

TEST_F(WaitingTest, WhatCannotGoStandsInTheListWithTheReason) {
  dataSet().edit("damping", "5.5");
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  typeInto("cteLoopTest", QStringLiteral("12"));
  asked.clear();
  review();
  EXPECT_THAT(text("loopTestValue", Result), HasSubstr("Left out"));
  EXPECT_EQ(text("loopTestValue", New), "12.00");
  ASSERT_TRUE(row("loopTestValue"));
  EXPECT_FALSE(row("loopTestValue")->flags() & Qt::ItemIsUserCheckable);
  ASSERT_TRUE(writes("damping"));
  EXPECT_FALSE(workbench->current().outputs().mayBeForced()) << "a test value leaves by its own button alone";
}

TEST_F(WaitingTest, WhatActsByItsPageGoesFromThereAloneAndAfterAQuestionThatNamesIt) {
  PlantDevice& block = device("profibusBlade");
  block.host().dataSet()->edit("simulation", "1");
  ASSERT_TRUE(show(block, "measurement", "activeRecipe"));
  review();
  ASSERT_TRUE(row("simulation"));
  EXPECT_THAT(text("simulation", Result), HasSubstr("Left out"));
  dialog().close();
  ASSERT_TRUE(show(block, "operation", "simulation"));
  review();
  ASSERT_TRUE(row("simulation"));
  EXPECT_EQ(text("simulation", Result), "");
  asked.clear();
  answer = UserPrompt::kStop;
  clickButton(dialog(), QStringLiteral("Write ticked to device"));
  settle();
  ASSERT_FALSE(asked.empty());
  EXPECT_THAT(asked.back(), HasSubstr(workbench->texts()("simulation").toStdString()));
  EXPECT_FALSE(block.outputs().mayBeForced());
  answer = UserPrompt::kGoOn;
  clickButton(dialog(), QStringLiteral("Write ticked to device"));
  EXPECT_TRUE(until([&] { return block.outputs().mayBeForced(); }));
}

TEST_F(WaitingTest, BelowLevelThreeNothingIsWrittenAndTheListSaysWhy) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  window->settingsMenu().setLevel(2);
  review();
  clickButton(dialog(), QStringLiteral("Write ticked to device"));
  settle();
  EXPECT_EQ(dataSet().value("description"), "STOCK PREP LINE2");
  bool told = false;
  for (const QLabel* const label : dialog().findChildren<QLabel*>()) told = told || label->text().contains(QStringLiteral("level 3"));
  EXPECT_TRUE(told);
}

TEST_F(WaitingTest, AReadNeverHidesAnEditThatWaits) {
  dataSet().edit("recipe1LinearizationSlopeP1", "1.1");
  ASSERT_TRUE(show("calibration", "recipes"));
  window->transfers().readAll();
  ASSERT_TRUE(until([&] { return !workbench->host().exchange().transfer().running(); }));
  const CtrTextEdit& slope = control<CtrTextEdit>("cteSlope(0)");
  EXPECT_THAT(window->panel().explanation(slope).toStdString(), Not(HasSubstr("<b>Read from the device")));
  if (slope.Modified())
    EXPECT_TRUE(isSaidBesideAValue(QStringLiteral("device: 1.000")));
  else
    EXPECT_TRUE(isSaidBesideAValue(QStringLiteral("→ 1.100")));
  grab("waits");
}

TEST_F(WaitingTest, WhatIsAcceptedLocallyIsNotSaidToBeRead) {
  ASSERT_TRUE(show("measurement", "activeRecipe"));
  window->connection().setMode(10);
  chooseIn("cceActiveRecipe", "recipe3");
  clickOn("cmdActiveRecipeSetButton");
  ASSERT_EQ(dataSet().offlineValue("activeRecipe"), "3");
  EXPECT_THAT(window->panel().explanation(control<Control>("cceActiveRecipe")).toStdString(), HasSubstr("Accepted, not written"));
  EXPECT_TRUE(isSaidBesideAValue(QStringLiteral("device: Recipe 1")));
  grab("accepted");
}

TEST_F(WaitingTest, AWrongValueSaysItsLimitsAtTheField) {
  ASSERT_TRUE(show("diagnostics", "loopTest"));
  typeInto("cteLoopTest", QStringLiteral("99"));
  EXPECT_TRUE(isSaidBesideAValue(QStringLiteral("Limits: ")));
  grab("wrong");
}

TEST_F(WaitingTest, ARowHasRoomForItsTick) {
  typeInto(kDescription, QStringLiteral("LINE 3"));
  dataSet().edit("damping", "5.5");
  review();
  EXPECT_GE(dialog().list().visualItemRect(row("damping")).height(), dialog().list().fontMetrics().height() + 8);
}

TEST_F(WaitingTest, WhatTheFileCannotTakeIsNamed) {
  ASSERT_TRUE(show("calibration", "recipes"));
  typeInto("cteSlope(0)", QStringLiteral("99999"));
  QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
  pump();
  EXPECT_THAT(window->status().statusText().toStdString(), HasSubstr("but without: Recipe 1 slope P1"));
  std::vector<std::string> questions;
  workbench->prompt().standIn = [&](const std::string&, const std::string& message) {
    questions.push_back(message);
    return message.find("but without") == std::string::npos ? UserPrompt::kGoOn : UserPrompt::kStop;
  };
  EXPECT_FALSE(window->close());
  ASSERT_FALSE(questions.empty());
  EXPECT_THAT(questions.back(), HasSubstr("but without: Recipe 1 slope P1"));
  EXPECT_TRUE(window->isVisible()) << "it was saved first, and the value that no file has is still there";
}

TEST_F(WaitingTest, WhatIsTypedIsInTheFileThatIsSaved) {
  window->connection().setMode(10);
  typeInto(kDescription, QStringLiteral("LINE 3"));
  QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
  pump();
  EXPECT_THAT(readWholeFile(dataSet().file()), HasSubstr("LINE 3"));
  EXPECT_THAT(window->status().statusText().toStdString(), HasSubstr("is saved"));
}

}  // namespace
}  // namespace ostrand::test
