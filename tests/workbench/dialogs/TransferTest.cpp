#include <gmock/gmock.h>

#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>

#include "platform/base/NumberText.h"
#include "workbench/WindowBench.h"
#include "workbench/dialogs/CompareDialog.h"
#include "workbench/dialogs/FaultsDialog.h"
#include "workbench/dialogs/TransferDialog.h"
#include "workbench/dialogs/WaitingDialog.h"

namespace ostrand::test {
namespace {

using testing::HasSubstr;

class TransferTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show("measurement", "activeRecipe"));
  }
  DataSet& dataSet() { return *workbench->host().dataSet(); }
  int shownRows(const QTableWidget& table) {
    int rows = 0;
    for (int row = 0; row < table.rowCount(); ++row) rows += !table.isRowHidden(row);
    return rows;
  }
  QTableWidget& compared() {
    EXPECT_TRUE(until([&] { return window->transfers().compareDialog()->table().rowCount() > 0; }));
    return window->transfers().compareDialog()->table();
  }
  QString cell(QTableWidget& table, const QString& parameter, int column) {
    for (int row = 0; row < table.rowCount(); ++row)
      if (table.item(row, 0)->toolTip() == parameter) return table.item(row, column)->text();
    return {};
  }
};

TEST_F(TransferTest, AComparisonShowsTheDifferenceAndWritesWhatIsTicked) {
  dataSet().edit("damping", "5.5");
  window->transfers().compare();
  QTableWidget& table = compared();
  EXPECT_EQ(cell(table, "damping", 1), QStringLiteral("5.5 s"));
  EXPECT_EQ(cell(table, "damping", 2), QStringLiteral("2.0 s"));
  EXPECT_EQ(cell(table, "damping", 3), QStringLiteral("-3.5"));
  EXPECT_LT(shownRows(table), table.rowCount());
  if (const char* const folder = std::getenv("OSTRAND_PICTURES"))
    window->transfers().compareDialog()->grab().save(QString::fromLatin1(folder) + "/compare.png");

  window->transfers().compareDialog()->tick("damping", true);
  window->transfers().compareDialog()->writeTicked();
  EXPECT_TRUE(until([&] { return table.rowCount() > 0 && cell(table, "damping", 2) == QStringLiteral("5.5 s"); }));
  EXPECT_EQ(cell(table, "damping", 3), QStringLiteral("–"));
}

TEST_F(TransferTest, ADialogNamesItsDeviceAndClosesWhenTheUserGoesToAnother) {
  QTest::keyClick(window.get(), Qt::Key_F7);
  window->connection().simulator();
  pump();
  const QPointer<QDialog> compare(window->transfers().compareDialog());
  ASSERT_TRUE(compare && compare->isVisible());
  EXPECT_THAT(compare->windowTitle().toStdString(), HasSubstr("QC-1201"));
  EXPECT_THAT(compare->findChild<QLabel*>()->text().toStdString(), HasSubstr("QC-1201")) << "the first line";
  QTreeWidgetItem* const other = window->tree().itemOf({&device("profibusBlade"), "measurement", "activeRecipe"});
  window->tree().scrollToItem(other);
  QTest::mouseClick(window->tree().viewport(), Qt::LeftButton, {}, window->tree().visualItemRect(other).center());
  settle();
  EXPECT_EQ(workbench->current().kind().name, "profibusBlade");
  EXPECT_TRUE(!compare || !compare->isVisible());
  for (const QDialog* const each : window->findChildren<QDialog*>()) EXPECT_FALSE(each->isVisible()) << each->windowTitle().toStdString();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTest::keyClick(window.get(), Qt::Key_F7);
  ASSERT_TRUE(window->transfers().compareDialog() && window->transfers().compareDialog()->isVisible());
  EXPECT_THAT(window->transfers().compareDialog()->windowTitle().toStdString(), HasSubstr(device("profibusBlade").title()));
}

TEST_F(TransferTest, BelowLevelThreeNoTickedRowIsWrittenAndTheButtonSaysWhy) {
  dataSet().edit("damping", "5.5");
  window->transfers().compare();
  compared();
  CompareDialog& dialog = *window->transfers().compareDialog();
  dialog.tick("damping", true);
  window->settingsMenu().setLevel(2);
  for (QPushButton* const button : dialog.findChildren<QPushButton*>())
    if (button->text() == QStringLiteral("Write ticked to device")) {
      EXPECT_FALSE(button->isEnabled());
      EXPECT_THAT(button->toolTip().toStdString(), HasSubstr("level 3"));
    }
  clickButton(dialog, QStringLiteral("Write ticked to device"));
  settle();
  EXPECT_EQ(dataSet().offlineValue("damping"), "5.5") << "it still waits";
}

TEST_F(TransferTest, ATickedRowOnWhichTheDeviceActsIsLeftOutAndSaidSo) {
  ASSERT_TRUE(show(device("profibusBlade"), "measurement", "activeRecipe"));
  dataSet().edit("simulation", "1");
  window->transfers().compare();
  compared();
  CompareDialog& dialog = *window->transfers().compareDialog();
  dialog.tick("simulation", true);
  clickButton(dialog, QStringLiteral("Write ticked to device"));
  settle();
  EXPECT_FALSE(workbench->current().outputs().mayBeForced());
  bool told = false;
  for (const QLabel* const label : dialog.findChildren<QLabel*>()) told = told || label->text().contains(QStringLiteral("Left out"));
  EXPECT_TRUE(told);
}

TEST_F(TransferTest, WhatIsTickedIsReadIntoTheDataSet) {
  dataSet().edit("damping", "5.5");
  window->transfers().compare();
  compared();
  window->transfers().compareDialog()->tick("damping", true);
  window->transfers().compareDialog()->readTicked();
  EXPECT_TRUE(until([&] { return parseNumber(dataSet().value("damping"), '.') == 2.0 && !workbench->host().exchange().transfer().running(); }));
}

TEST_F(TransferTest, WhatFailedIsListedAndTriedAgain) {
  Device& device = *workbench->host().communication().device();
  device.setFault("refuse", "outputSignal hartCmdErrAccessRestricted");
  window->transfers().readAll();
  ASSERT_TRUE(until([&] { return !workbench->host().exchange().transfer().running(); }));
  TransferDialog* const dialog = window->transfers().transferDialog();
  const int items = static_cast<int>(dataSet().readItems("outputSignal").size());
  ASSERT_TRUE(until([&] { return dialog->failuresShown() == items; }));
  if (const char* const folder = std::getenv("OSTRAND_PICTURES")) dialog->grab().save(QString::fromLatin1(folder) + "/transfer.png");
  device.setFault("none", "");
  dialog->retry();
  EXPECT_TRUE(until([&] { return !workbench->host().exchange().transfer().running() && dialog->failuresShown() == 0; }));
}

TEST_F(TransferTest, ADeviceThatDoesNotAnswerIsTold) {
  workbench->host().communication().device()->setFault("silent", "");
  window->transfers().readPage();
  ASSERT_TRUE(until([&] { return !workbench->current().status().answers(); }));
  EXPECT_THAT(window->status().statusText().toStdString(), HasSubstr("does not answer"));
  EXPECT_EQ(workbench->current().status().state(ne107Order()), std::nullopt);
  pump();
  grab("no-answer");
  workbench->host().communication().device()->setFault("none", "");
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "1");
}

TEST_F(TransferTest, GarbageCostsTheAnswerOnly) {
  workbench->host().communication().device()->setFault("garbage", "");
  window->transfers().readPage();
  ASSERT_TRUE(until([&] { return !workbench->host().exchange().transfer().running(); }));
  workbench->host().communication().device()->setFault("none", "");
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "1");
}

TEST_F(TransferTest, TheDeviceStateFollowsItsStatusBits) {
  DeviceStatus& status = workbench->current().status();
  EXPECT_TRUE(until([&] { return status.state(ne107Order()) == Ne107::Good; }));
  workbench->host().communication().device()->setFault("failure", "sensor");
  status.refresh();
  EXPECT_TRUE(until([&] { return status.state(ne107Order()) == Ne107::Failure; }));
  pump();
  grab("failure");
}

TEST_F(TransferTest, WaitingRequestsAreCancelled) {
  workbench->host().communication().device()->setFault("slow", "10");
  workbench->host().exchange().readAll();
  ASSERT_GT(workbench->host().communication().waiting(), 0u);
  workbench->host().communication().cancelWaiting();
  EXPECT_EQ(workbench->host().communication().waiting(), 0u);
}

TEST_F(TransferTest, AFaultWithoutItsArgumentIsRefused) {
  FaultsDialog dialog(*workbench, window->theme(), window.get());
  dialog.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_THROW(dialog.set("failure", "nothing of the kind"), RuntimeError);
  EXPECT_NO_THROW(dialog.set("silent", ""));
  EXPECT_NO_THROW(dialog.set("none", ""));
}

TEST_F(TransferTest, LocalAcceptanceTakesEditsIntoTheDataSet) {
  window->connection().setMode(10);
  EXPECT_EQ(workbench->host().exchange().submit("",
                                                "<communicationRequest name=\"outputSignal\" access=\"write\"><item name=\"damping\" "
                                                "unit=\"s\"><floatVal>7</floatVal></item></communicationRequest>",
                                                "outputSignal", "", 0, 0),
            "");
  settle();
  EXPECT_EQ(dataSet().offlineValue("damping"), "7");
  EXPECT_TRUE(workbench->current().hasPendingEdits());

  window->connection().setMode(11);
  window->edits().review();
  clickButton(*window->edits().waitingDialog(), QStringLiteral("Write ticked to device"));
  ASSERT_TRUE(until([&] { return !workbench->host().exchange().transfer().running(); }));
  EXPECT_EQ(dataSet().offlineValue("damping"), "");
  EXPECT_EQ(parseNumber(deviceValue("outputSignal", "damping"), '.'), 7.0);
}

}  // namespace
}  // namespace ostrand::test
