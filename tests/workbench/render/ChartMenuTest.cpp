#include <QClipboard>
#include <QMenu>
#include <filesystem>

#include "platform/base/File.h"
#include "workbench/render/ChartBench.h"
#include "workbench/render/ChartExport.h"

namespace ostrand::test {

namespace {

class ChartMenuRenderTest : public ChartBench {
 protected:
  ~ChartMenuRenderTest() override { std::filesystem::remove_all(mFolder); }

  QMenu* openMenu() {
    QTest::mouseClick(&canvas(), Qt::RightButton, {}, nowhere());
    auto* const list = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    if (!list) ADD_FAILURE() << "no menu";
    return list;
  }
  // With the keys of the menu, as a user does.
  void choose(const QString& text) {
    QMenu* const list = openMenu();
    if (!list) return;
    for (QAction* const each : list->actions()) {
      if (each->text() != text) continue;
      ASSERT_TRUE(each->isEnabled()) << text.toStdString();
      list->setActiveAction(each);
      QTest::keyClick(list, Qt::Key_Return);
      return settle();
    }
    ADD_FAILURE() << "no entry " << text.toStdString();
    list->close();
  }
  std::string saved(const QString& entry, const std::string& name) {
    const std::filesystem::path file = mFolder / name;
    desktop.nextFile = file;
    choose(entry);
    EXPECT_TRUE(std::filesystem::exists(file)) << name;
    return readWholeFile(file);
  }

  std::filesystem::path mFolder = [] {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("ostrand-chart-" + std::to_string(QCoreApplication::applicationPid()));
    std::filesystem::create_directories(folder);
    return folder;
  }();
};

}  // namespace

TEST_F(ChartMenuRenderTest, OpensAtTheSecondButtonWithWhatIsOffered) {
  QMenu* list = openMenu();
  ASSERT_TRUE(list);
  std::vector<std::string> off;
  for (QAction* const each : list->actions())
    if (!each->isSeparator() && !each->isEnabled()) off.push_back(each->text().toStdString());
  EXPECT_EQ(off, (std::vector<std::string>{"Undo zoom"}));
  list->close();
  settle();
  menu->Enabled(1, false);
  chart->MaximizeAllowed(false);
  chart->zoom({0.2, 0.8, 2, 6});
  list = openMenu();
  ASSERT_TRUE(list);
  EXPECT_FALSE(list->actions()[0]->isEnabled());
  EXPECT_TRUE(list->actions()[1]->isEnabled());
  EXPECT_FALSE(list->actions()[2]->isEnabled());
  list->close();
}

TEST_F(ChartMenuRenderTest, ZoomsToTheSamplesAndBack) {
  choose("Zoom to the samples");
  EXPECT_TRUE(chart->isZoomed());
  EXPECT_EQ(canvas().seenMarks().size(), 17U);
  EXPECT_LT(canvas().xAxis->range().size(), 0.6);
  choose("Undo zoom");
  EXPECT_FALSE(chart->isZoomed());
}

TEST_F(ChartMenuRenderTest, SavesPictureDocumentAndValues) {
  EXPECT_TRUE(saved("Save as picture (PNG)…", "a.png").starts_with("\x89PNG"));
  EXPECT_TRUE(saved("Save as PDF…", "a.pdf").starts_with("%PDF"));
  for (int series = 1; series < Chart::kSeries; ++series)
    for (int point = 0; point < Chart::kPoints; ++point) chart->XValue(series, point, Chart::kNull);
  for (int point = 2; point < 17; ++point) chart->XValue(0, point, Chart::kNull);
  chart->YValue(0, 0, 3.25F);
  chart->YValue(0, 1, 4);
  EXPECT_EQ(saved("Save values (CSV)…", "a.csv"),
            "\xEF\xBB\xBFseries,point,Torque / Nm,Lab / %Cs\r\nSample points,1,0.25,3.25\r\nSample points,2,0.275,4\r\n");
  chart->XLabel("Torque; \"Nm\"");
  EXPECT_TRUE(
      chartCsv(*chart, ',').ends_with("series;point;\"Torque; \"\"Nm\"\"\";Lab / %Cs\r\nSample points;1;0,25;3,25\r\nSample points;2;0,275;4\r\n"));
}

TEST_F(ChartMenuRenderTest, AFileThatCannotBeWrittenIsToldAndADialogThatIsLeftSavesNothing) {
  desktop.nextFile = mFolder / "none" / "a.csv";
  choose("Save values (CSV)…");
  EXPECT_EQ(unhandled.size(), 1U);
  desktop.nextFile = std::nullopt;
  choose("Save as PDF…");
  EXPECT_EQ(unhandled.size(), 1U);
  EXPECT_TRUE(std::filesystem::is_empty(mFolder));
}

TEST_F(ChartMenuRenderTest, CopiesThePicture) {
  QApplication::clipboard()->clear();
  choose("Copy picture");
  EXPECT_EQ(QApplication::clipboard()->image().size(), canvas().size() * canvas().devicePixelRatio());
}

TEST_F(ChartMenuRenderTest, TheMaximisedCopyIsAWindowThatFollowsAndIsClosedWithTheView) {
  choose("Maximise");
  ASSERT_TRUE(window());
  EXPECT_TRUE(window()->isWindow() && window()->isVisible());
  EXPECT_EQ(window()->windowTitle(), "Lab / %Cs – Torque / Nm");
  chart->YMaximum(7.5F);
  chart->AnnotationText("No curve");
  settle();
  EXPECT_EQ(window()->canvas().yAxis->range(), QCPRange(0, 7.5));
  QTest::mouseClick(&window()->canvas(), Qt::LeftButton, {}, window()->canvas().placeOf({0, 2}).toPoint());
  EXPECT_EQ(spots, (std::vector<std::string>{"once 0 2"}));
  chart->Maximize();
  panel.setView(nullptr);
  settle();
  EXPECT_FALSE(window());
}

TEST_F(ChartMenuRenderTest, TheCopyIsClosedByItsKeyAndOpensAgain) {
  chart->Maximize();
  ASSERT_TRUE(window());
  QTest::keyClick(&window()->canvas(), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(window());
  chart->YMaximum(7.5F);
  settle();
  chart->Maximize();
  EXPECT_TRUE(window());
}

}  // namespace ostrand::test
