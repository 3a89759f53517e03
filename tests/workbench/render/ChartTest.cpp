#include <QMenu>
#include <QPushButton>
#include <QToolTip>
#include <QWheelEvent>

#include "workbench/render/ChartBench.h"

namespace ostrand::test {

namespace {

using ChartRenderTest = ChartBench;

int drawnCurves(QCustomPlot& plot) {
  int count = 0;
  for (int i = 0; i < plot.plottableCount(); ++i)
    if (auto* const curve = qobject_cast<QCPCurve*>(plot.plottable(i))) count += !curve->data()->isEmpty();
  return count;
}

int drawnMarks(QCustomPlot& plot) {
  int count = 0;
  for (int i = 0; i < plot.graphCount(); ++i) count += plot.graph(i)->dataCount();
  return count;
}

void wheel(QWidget& over, const QPoint& at, int notches) {
  QWheelEvent event(at, over.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&over, &event);
}

void drag(QWidget& over, const QPoint& from, const QPoint& to) {
  QTest::mousePress(&over, Qt::LeftButton, {}, from);
  QTest::mouseMove(&over, (from + to) / 2);
  QTest::mouseMove(&over, to);
  QTest::mouseRelease(&over, Qt::LeftButton, {}, to);
}

}  // namespace

TEST_F(ChartRenderTest, LinesAndMarksAreDrawnWithTheirNamesInTheLegend) {
  EXPECT_EQ(drawnCurves(canvas()), 3);
  EXPECT_EQ(drawnMarks(canvas()), 17);
  ASSERT_EQ(canvas().legend->itemCount(), 5);
  EXPECT_EQ(dynamic_cast<QCPPlottableLegendItem*>(canvas().legend->item(4))->plottable()->name(), "Calibration");
  EXPECT_EQ(canvas().xAxis->label(), "Torque / Nm");
  EXPECT_EQ(canvas().yAxis->range(), QCPRange(0, 18.001F));
}

TEST_F(ChartRenderTest, ANullValueDrawsNothingAndKeepsItsLegend) {
  for (int point = 0; point < Chart::kPoints; ++point) chart->XValue(1, point, Chart::kNull);
  chart->YValue(0, 5, Chart::kNull);
  chart->Rebuild(0);
  settle();
  EXPECT_EQ(drawnCurves(canvas()), 2);
  EXPECT_EQ(drawnMarks(canvas()), 16);
  EXPECT_EQ(canvas().legend->itemCount(), 5);
}

TEST_F(ChartRenderTest, AClickOnAMarkIsASingleHotSpotAndADoubleClickADoubleOne) {
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, placeOf(0, 3) + QPoint(4, 3));
  EXPECT_EQ(spots, (std::vector<std::string>{"once 0 3"}));
  spots.clear();
  QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, placeOf(0, 12));
  EXPECT_EQ(spots.back(), "twice 0 12");
  spots.clear();
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, nowhere());
  EXPECT_TRUE(spots.empty());
}

TEST_F(ChartRenderTest, AMarkIsMeantBeforeTheLineUnderIt) {
  chart->XValue(0, 0, chart->point(4, 20).x);
  chart->YValue(0, 0, chart->point(4, 20).y);
  chart->Rebuild(0);
  settle();
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, placeOf(4, 20));
  EXPECT_EQ(spots, (std::vector<std::string>{"once 0 0"}));
  spots.clear();
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, placeOf(1, 45));
  EXPECT_EQ(spots, (std::vector<std::string>{"once 1 45"}));
}

TEST_F(ChartRenderTest, TheWheelZoomsToThePointerAndTheButtonShowsTheWholeAgain) {
  const QPoint at = placeOf(0, 8);
  const double before = canvas().xAxis->pixelToCoord(at.x());
  wheel(canvas(), at, 2);
  settle();
  EXPECT_TRUE(chart->isZoomed());
  EXPECT_LT(canvas().xAxis->range().size(), 1.0);
  EXPECT_NEAR(canvas().xAxis->pixelToCoord(at.x()), before, 0.01) << "what is under the pointer stays there";
  auto* const button = canvas().findChild<QPushButton*>();
  ASSERT_TRUE(button && button->isVisible());
  grab("chart-zoomed");
  QTest::mouseClick(button, Qt::LeftButton);
  settle();
  EXPECT_FALSE(chart->isZoomed());
  EXPECT_FALSE(button->isVisible());
  EXPECT_EQ(canvas().xAxis->range(), QCPRange(0, 1.5F));
}

TEST_F(ChartRenderTest, ADragMovesWhatIsSeenAndClicksNothing) {
  wheel(canvas(), placeOf(0, 8), 3);
  settle();
  const QCPRange before = canvas().xAxis->range();
  drag(canvas(), placeOf(0, 8), placeOf(0, 8) + QPoint(60, 0));
  settle();
  EXPECT_LT(canvas().xAxis->range().lower, before.lower);
  EXPECT_NEAR(canvas().xAxis->range().size(), before.size(), 1e-6);
  EXPECT_TRUE(spots.empty());
}

TEST_F(ChartRenderTest, NoZoomLosesTheWhole) {
  for (int turn = 0; turn < 30; ++turn) wheel(canvas(), placeOf(0, 8), -1);
  settle();
  EXPECT_LE(canvas().xAxis->range().size(), 4.6);
  for (int turn = 0; turn < 80; ++turn) wheel(canvas(), placeOf(0, 8), 1);
  settle();
  EXPECT_GT(canvas().xAxis->range().size(), 1e-4);
  QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, nowhere());
  settle();
  EXPECT_FALSE(chart->isZoomed()) << "a double click beside the points";
}

TEST_F(ChartRenderTest, ThePointUnderThePointerIsToldInWords) {
  chart->PointText(0, 4, "2.3.2026 8:15\nTorque 0.35 Nm\nLab 3.9 %Cs");
  QTest::mouseMove(&canvas(), nowhere());
  QTest::mouseMove(&canvas(), placeOf(0, 4));
  EXPECT_TRUE(QToolTip::text().contains("Torque 0.35 Nm<br>Lab 3.9 %Cs")) << QToolTip::text().toStdString();
  EXPECT_EQ(panel.explanation(*chart), QToolTip::text());
  QTest::mouseMove(&canvas(), placeOf(1, 45));
  EXPECT_TRUE(QToolTip::text().contains("Basic tuning<br>Torque / Nm: 1.378")) << QToolTip::text().toStdString();
  QTest::mouseMove(&canvas(), nowhere());
  EXPECT_EQ(panel.explanation(*chart), QString());
}

TEST_F(ChartRenderTest, TheKeysGoFromMarkToMarkAndClickAndZoom) {
  canvas().setFocus();
  QTest::keyClick(&canvas(), Qt::Key_Right);
  QTest::keyClick(&canvas(), Qt::Key_Right);
  QTest::keyClick(&canvas(), Qt::Key_Return);
  QTest::keyClick(&canvas(), Qt::Key_Left);
  QTest::keyClick(&canvas(), Qt::Key_Space);
  EXPECT_EQ(spots, (std::vector<std::string>{"once 0 1", "twice 0 0"}));
  QTest::keyClick(&canvas(), Qt::Key_Plus);
  EXPECT_TRUE(chart->isZoomed());
  QTest::keyClick(&canvas(), Qt::Key_0);
  EXPECT_FALSE(chart->isZoomed());
}

TEST_F(ChartRenderTest, ADisabledChartIsNotClicked) {
  chart->Enabled(false);
  settle();
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, placeOf(0, 3));
  EXPECT_TRUE(spots.empty());
  EXPECT_TRUE(refused.empty());
}

TEST_F(ChartRenderTest, ClicksAreToldAsATranscriptTellsThem) {
  std::vector<std::string> told;
  panel.onInput = [&](const Control& control, const UserInput& input) {
    told.push_back(input.command + " " + control.name() + (input.arguments.empty() ? "" : " " + input.arguments));
    return nullptr;
  };
  QTest::mouseClick(&canvas(), Qt::LeftButton, {}, placeOf(0, 3));
  QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, placeOf(0, 3));
  wheel(canvas(), placeOf(0, 8), 2);
  QTest::mouseClick(&canvas(), Qt::RightButton, {}, nowhere());
  EXPECT_EQ(told, (std::vector<std::string>{"hotspot pesgoX 0 3", "hotspot pesgoX 0 3 double", "menu pesgoX"}));
  QApplication::activePopupWidget()->close();
}

TEST_F(ChartRenderTest, AMessageStandsInTheMiddleAndStaysSeenInAZoom) {
  chart->AnnotationText("Coefficients are missing");
  settle();
  auto* const message = dynamic_cast<QCPItemText*>(canvas().item(0));
  ASSERT_TRUE(message && message->visible());
  EXPECT_EQ(message->text(), "Coefficients are missing");
  const auto fromTheMiddle = [&] { return (message->position->pixelPosition() - canvas().axisRect()->rect().center()).manhattanLength(); };
  EXPECT_LT(fromTheMiddle(), 4);
  grab("chart-message");
  wheel(canvas(), placeOf(0, 2), 6);
  settle();
  EXPECT_LT(fromTheMiddle(), 4);
  chart->AnnotationText("");
  settle();
  EXPECT_FALSE(message->visible());
}

TEST_F(ChartRenderTest, IsPaintedOnceForAllThatChangesInOneTurn) {
  int paints = 0;
  QObject::connect(&canvas(), &QCustomPlot::afterReplot, &canvas(), [&] { ++paints; });
  for (int point = 0; point <= 50; ++point) {
    chart->YValue(1, point, 3);
    chart->Rebuild(0);
  }
  chart->XMaximum(1.2F);
  chart->YLabel("%");
  chart->AnnotationText("x");
  EXPECT_EQ(paints, 0);
  settle();
  EXPECT_EQ(paints, 1);
  panel.refresh();
  chart->Rebuild(1);
  settle();
  EXPECT_EQ(paints, 1) << "nothing has changed";
}

TEST_F(ChartRenderTest, NumbersAreWrittenAsTheUserWritesThem) {
  desktop.setLocale("fi");
  panel.setTheme(panel.theme());
  settle();
  QTest::mouseMove(&canvas(), nowhere());
  QTest::mouseMove(&canvas(), placeOf(1, 45));
  EXPECT_TRUE(QToolTip::text().contains("1,378")) << QToolTip::text().toStdString();
}

TEST_F(ChartRenderTest, LinesAndMarksStandOutInBothThemes) {
  for (const auto& [kind, name] : {std::pair{Theme::Kind::Light, "light"}, {Theme::Kind::Dark, "dark"}}) {
    use(Theme::make(kind, 1.5));
    settle();
    grab(std::string("chart-") + name);
    for (int i = 0; i < canvas().plottableCount(); ++i) {
      auto* const graph = qobject_cast<QCPGraph*>(canvas().plottable(i));
      const QColor color = graph ? graph->scatterStyle().brush().color() : canvas().plottable(i)->pen().color();
      EXPECT_GE(Theme::contrast(color, panel.theme().surface), 3.0) << i << " " << color.name().toStdString();
    }
  }
}

}  // namespace ostrand::test
