#include <gmock/gmock.h>

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <QToolBar>
#include <array>
#include <set>

#include "workbench/WindowBench.h"
#include "workbench/dialogs/PrioritiesDialog.h"
#include "workbench/words/Phrases.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class DialogsTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show("measurement", "activeRecipe"));
    workbench->prompt().standIn = nullptr;
  }
  static void picture(QWidget& dialog, const char* name) {
    if (const char* const folder = std::getenv("OSTRAND_PICTURES"))
      dialog.grab().save(QString::fromLatin1(folder) + QLatin1Char('/') + QLatin1String(name));
  }
  int ask() {
    return workbench->prompt().ask("Sampling", "Sampling is running and will be stopped if you leave this page. Do you want to leave?",
                                   {"Leave", "Stay here"});
  }
};

TEST_F(DialogsTest, YesGoesOn) {
  inDialog([](QWidget& dialog) {
    picture(dialog, "question.png");
    clickButton(dialog, QStringLiteral("Leave"));
  });
  EXPECT_EQ(ask(), UserPrompt::kGoOn);
}

TEST_F(DialogsTest, NoEnterAndEscapeStop) {
  inDialog([](QWidget& dialog) { clickButton(dialog, QStringLiteral("Stay here")); });
  EXPECT_EQ(ask(), UserPrompt::kStop);
  inDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  EXPECT_EQ(ask(), UserPrompt::kStop);
  inDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_EQ(ask(), UserPrompt::kStop);
}

TEST_F(DialogsTest, AnswersArriveUnderAnOpenQuestion) {
  window->transfers().readPage();
  const auto answers = [&] {
    std::size_t count = 0;
    for (const std::string& line : said(ConversationLog::Kind::Data)) count += line == "online \"activeRecipe\"";
    return count;
  };
  const std::size_t before = answers();
  std::size_t during = before;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    workbench->desktop().leap();
    during = answers();
    if (QWidget* const dialog = QApplication::activeModalWidget(); dialog && during > before) dialog->close();
  });
  poll.start(0);
  ask();
  EXPECT_GT(during, before);
}

TEST_F(DialogsTest, AMessageWaitsForTheUser) {
  inDialog([](QWidget& dialog) {
    picture(dialog, "message.png");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  window->user().tell(QStringLiteral("copy.xml could not be saved; the file is as it was"),
                      QStringLiteral("/full/copy.xml: no space left on the device"));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(DialogsTest, TheUserPutsTheDeviceSignalsInOrder) {
  inDialog([](QWidget& dialog) {
    dialog.findChild<QListWidget*>()->setCurrentRow(1);
    clickButton(dialog, QStringLiteral("Move up"));
    picture(dialog, "priorities.png");
    clickButton(dialog, QStringLiteral("OK"));
  });
  const auto chosen = PrioritiesDialog::choose(*window, workbench->texts(), ne107Order());
  ASSERT_TRUE(chosen);
  EXPECT_THAT(*chosen, ElementsAre(Ne107::FunctionCheck, Ne107::Failure, Ne107::OutOfSpecification, Ne107::Maintenance));
  inDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_FALSE(PrioritiesDialog::choose(*window, workbench->texts(), ne107Order()));
}

TEST_F(DialogsTest, TheSimulatorIsChangedInItsDialog) {
  window->connection().simulator();
  pump();
  QDialog* dialog = nullptr;
  for (QDialog* const each : window->findChildren<QDialog*>())
    if (each->windowTitle() == QStringLiteral("Simulated device – QC-1201")) dialog = each;
  ASSERT_NE(dialog, nullptr);
  picture(*dialog, "simulator.png");
  clickButton(*dialog, QStringLiteral("Close"));
}

TEST_F(DialogsTest, TheWindowServesAtTwiceTheSize) {
  workbench->setTheme(Theme::Kind::Dark, 2.0);
  pump();
  grab("twice");
  EXPECT_GE(widget("cceActiveRecipe")->fontMetrics().height(), 30);
  EXPECT_GE(window->tree().fontMetrics().height(), 30);
  workbench->setTheme(Theme::Kind::Light, 1.0);
}

// Top, bottom and the first tool of the tool bar.
std::array<int, 4> toolBarLines(const MainWindow& window) {
  const auto& bar = *window.findChild<QToolBar*>();
  const QRect tool = bar.widgetForAction(bar.actions().front())->geometry();
  return {bar.height(), tool.left(), tool.top(), bar.height() - tool.bottom()};
}

TEST_F(DialogsTest, AnswersAreReadWholeAtTwiceTheSize) {
  workbench->setLanguage("de");
  workbench->setTheme(Theme::Kind::Light, 2.0);
  inDialog([](QWidget& dialog) {
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>())
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
    for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
      const int right = label->mapTo(&dialog, QPoint(label->width(), 0)).x();
      EXPECT_TRUE(!label->isVisible() || right <= dialog.width()) << label->text().toStdString();
    }
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(workbench->prompt().choose(
                QStringLiteral("Es läuft noch etwas"), QStringLiteral("QC-1201: Ein Ausgang ist womöglich vorgegeben, oder eine Probenahme läuft."),
                {QStringLiteral("Beenden und schließen"), QStringLiteral("Schließen und weiterlaufen lassen"), QStringLiteral("Hier bleiben")}),
            2u);
}

TEST_F(DialogsTest, TheToolBarLooksTheSameAfterAnotherThemeAndBack) {
  pump();
  const std::array<int, 4> before = toolBarLines(*window);
  EXPECT_LE(std::abs(before[2] - before[3]), 2) << "in the middle of the bar";
  workbench->setTheme(Theme::Kind::Dark, 1.0);
  pump();
  EXPECT_EQ(toolBarLines(*window), before);
  workbench->setTheme(Theme::Kind::Light, 1.0);
  pump();
  EXPECT_EQ(toolBarLines(*window), before);
}

TEST_F(DialogsTest, OneMessageOfSeveralViewsIsReadOnce) {
  int boxes = 0;
  workbench->prompt().standIn = [&](const std::string&, const std::string&) { return ++boxes; };
  workbench->prompt().show("Error", "No answer");
  workbench->prompt().show("Error", "No answer");
  workbench->prompt().show("Error", "Another");
  EXPECT_EQ(boxes, 2);
  pump();
  workbench->prompt().show("Error", "Another");
  EXPECT_EQ(boxes, 3) << "said again later, it is told again";
}

TEST_F(DialogsTest, TheWindowSpeaksTheUsersLanguage) {
  window->settingsMenu().setLanguage("fi");
  pump();
  EXPECT_EQ(window->menuBar()->actions().front()->text(), QStringLiteral("&Tiedosto"));
  window->settingsMenu().setLanguage("en");
  EXPECT_EQ(window->menuBar()->actions().front()->text(), QStringLiteral("&File"));
}

// What stands in the code as say("...") or speak(..., "...") must be in the table; a word that was changed in one place alone
// would stay English for everybody.
TEST_F(DialogsTest, EveryWordOfTheWindowIsInTheTable) {
  std::set<std::string> known;
  for (const Phrase& each : phrases()) {
    EXPECT_TRUE(known.insert(each.en).second) << each.en << " stands twice";
    for (const char* const text : {each.fi, each.sv, each.de})
      EXPECT_EQ(QString::fromUtf8(each.en).count(QLatin1Char('%')), QString::fromUtf8(text).count(QLatin1Char('%'))) << text;
  }
  const QRegularExpression spoken(
      QStringLiteral("(?:\\bsay|asks)\\(\"((?:[^\"\\\\]|\\\\.)*)\"|(?:speak|DeviceDialog)\\([^;]*?\",\\s*\"((?:[^\"\\\\]|\\\\.)*)\""));
  int found = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(std::string(OSTRAND_SOURCE_DIR) + "/workbench")) {
    if (!file.is_regular_file()) continue;
    const QString source = QString::fromStdString(readWholeFile(file.path()));
    for (auto match = spoken.globalMatch(source); match.hasNext(); ++found) {
      const QRegularExpressionMatch each = match.next();
      const QString text = (each.captured(1).isNull() ? each.captured(2) : each.captured(1)).replace(QStringLiteral("\\\""), QStringLiteral("\""));
      EXPECT_TRUE(known.contains(text.toStdString())) << file.path().filename() << ": " << text.toStdString();
    }
  }
  EXPECT_GT(found, 80);
}

TEST_F(DialogsTest, TheWindowFitsASmallScreen) {
  EXPECT_LE(window->minimumSizeHint().width(), 1200);
  EXPECT_LE(window->minimumSizeHint().height(), 700);
  EXPECT_EQ(window->width(), 1370) << "it opens as large as it is meant to";
}

}  // namespace
}  // namespace ostrand::test
