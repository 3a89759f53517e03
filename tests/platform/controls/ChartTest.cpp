#include "platform/controls/Chart.h"

#include <numeric>

#include "platform/controls/CtrGraphMenu.h"
#include "support/ControlBench.h"
#include "support/ErrorOf.h"
#include "support/RecordingProbe.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

class ChartTest : public ControlBench<Chart> {
 protected:
  ~ChartTest() override { desktop.setProbe(nullptr); }

  // A curve of two points and a sample beside it.
  void fill() {
    edit().SeriesStyle(0, Chart::Style::Marks);
    edit().XMaximum(1.5F), edit().YMaximum(18);
    for (const auto& [series, point, x, y] : {std::tuple{1, 0, 0.0F, 2.0F}, {1, 1, 0.5F, 4.0F}, {1, 2, 1.5F, 12.0F}, {0, 3, 0.5F, 5.0F}}) {
      edit().XValue(series, point, x);
      edit().YValue(series, point, y);
    }
    edit().Rebuild(0);
    signals = 0;
  }
};

TEST_F(ChartTest, BeginsWithPointsThatAreNotDrawn) {
  EXPECT_EQ(edit().kind(), Control::Kind::Chart);
  for (int series = 0; series < Chart::kSeries; ++series)
    for (int point = 0; point < Chart::kPoints; ++point) EXPECT_FALSE(edit().point(series, point).isDrawn()) << series << " " << point;
  EXPECT_EQ(edit().XData().size(), 251U);
}

TEST_F(ChartTest, DrawsAPointThatHasBothCoordinates) {
  edit().XValue(2, 7, 0.25F);
  EXPECT_FALSE(edit().point(2, 7).isDrawn());
  edit().YValue(2, 7, 3);
  EXPECT_TRUE(edit().point(2, 7).isDrawn());
  EXPECT_EQ(edit().XData()[2 * 50 + 7], 0.25F);
  edit().YValue(2, 7, std::numeric_limits<float>::quiet_NaN());
  EXPECT_FALSE(edit().point(2, 7).isDrawn()) << "not a number is no place";
}

TEST_F(ChartTest, DropsAPointAboveTheLast) {
  edit().XValue(1, 50, 1);
  edit().PointColor(4, 50, Color::editedText());
  edit().PointType(0, 50, 9);
  EXPECT_EQ(edit().XData(), std::vector<float>(251, Chart::kNull)) << "nor is it the first of the next series";
  EXPECT_EQ(errorOf([&] { edit().XValue(5, 0, 1); }), 9);
  EXPECT_EQ(errorOf([&] { edit().YValue(0, -1, 1); }), 9);
}

TEST_F(ChartTest, TakesAsMuchOfABlockAsItIsTold) {
  std::vector<float> block(251);
  std::iota(block.begin(), block.end(), 0.0F);
  edit().YData(block, 249);
  EXPECT_EQ(edit().YData()[248], 248);
  EXPECT_EQ(edit().YData()[249], Chart::kNull) << "the last point keeps its value";
  EXPECT_EQ(errorOf([&] { edit().YData(block, 252); }), 9);
  EXPECT_EQ(errorOf([&] { edit().YData(std::span(block).first(3), 4); }), 9);
  EXPECT_EQ(errorOf([&] { edit().YData(block, -1); }), 9);
}

TEST_F(ChartTest, ShowsPointsWithARebuildAndOnlyIfTheyHaveChanged) {
  signals = 0;
  edit().XValue(0, 0, 1);
  edit().YValue(0, 0, 1);
  edit().PointColor(0, 0, Color::editedText());
  edit().PointType(0, 0, 3);
  EXPECT_EQ(signals, 0);
  edit().Rebuild(1);
  EXPECT_EQ(signals, 1);
  edit().XValue(0, 0, 1);
  edit().XData(edit().XData(), 250);
  edit().PointType(0, 0, 3);
  edit().Rebuild(0);
  EXPECT_EQ(signals, 1);
}

TEST_F(ChartTest, ShowsAxesTextsAndLabelsAtOnce) {
  signals = 0;
  edit().XMinimum(0.1F), edit().XTick(0.5F), edit().YLabel("Lab / %Cs"), edit().AnnotationText("No curve"), edit().AnnotationX(0.75F);
  edit().SeriesLabel(1, "Basic tuning"), edit().Title(" ", "");
  EXPECT_EQ(signals, 7);
  edit().XMinimum(0.1F), edit().YLabel("Lab / %Cs"), edit().AnnotationText("No curve"), edit().SeriesLabel(1, "Basic tuning"), edit().Title(" ", "");
  EXPECT_EQ(signals, 7);
}

TEST_F(ChartTest, GivesAPointTheColourOfItsSeriesUntilItHasOne) {
  edit().SeriesColor(0, Color::disabledText());
  EXPECT_EQ(edit().point(0, 1).color, Color::disabledText());
  edit().PointColor(0, 1, Color::editedText());
  EXPECT_EQ(edit().point(0, 1).color, Color::editedText());
  EXPECT_EQ(edit().point(0, 2).color, Color::disabledText());
}

TEST_F(ChartTest, PassesTheProbeWithEveryOperation) {
  RecordingProbe probe;
  desktop.setProbe(&probe);
  const std::vector<float> block(251);
  edit().XData(block, 249), edit().YData(block, 249), edit().XValue(0, 3, 0.5F), edit().YValue(0, 50, -99999);
  edit().PointColor(0, 3, {Color::Role::Given, 0x888866}), edit().PointType(0, 3, 9), edit().XMinimum(0), edit().YMaximum(18.001F),
      edit().XTick(1.5F);
  edit().XLabel("torque / Nm"), edit().AnnotationY(9.0005F), edit().AnnotationText("a"), edit().Rebuild(1), edit().SeriesLabel(0, "sample");
  edit().MaximizeAllowed(true), edit().Maximize();
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("ctlX.XData 249", "ctlX.YData 249", "ctlX.XValue 0 3 0.5", "ctlX.YValue 0 50 -99999", "ctlX.PointColor 0 3 0x668888",
                          "ctlX.PointType 0 3 9", "ctlX.XMinimum = 0", "ctlX.YMaximum = 18.001", "ctlX.XTick = 1.5", "ctlX.XLabel = \"torque / Nm\"",
                          "ctlX.AnnotationY = 9.0005", "ctlX.AnnotationText = \"a\"", "ctlX.Rebuild 1", "ctlX.SeriesLabel 0 \"sample\"",
                          "ctlX.MaximizeAllowed = true", "ctlX.Maximize"));
  probe.calls.fail("ctlX.XValue");
  EXPECT_ANY_THROW(edit().XValue(0, 3, 0.75F));
  EXPECT_EQ(edit().point(0, 3).x, 0.5F) << "what fails does not happen";
}

TEST_F(ChartTest, TellsAClickOnAPointAndTheSecondButtonIfItCanBeReached) {
  std::vector<std::string> heard;
  edit().DataHotSpot.connect([&](bool twice, int series, int point) {
    heard.push_back((twice ? "twice " : "once ") + std::to_string(series) + " " + std::to_string(point));
  });
  edit().MouseDown.connect([&] { heard.push_back("menu"); });
  edit().hotspot(0, 4, false);
  edit().hotspot(1, 49, true);
  edit().menu();
  EXPECT_THAT(heard, ElementsAre("once 0 4", "twice 1 49", "menu"));
  EXPECT_EQ(errorOf([&] { edit().hotspot(0, 50, false); }), 70);
  edit().Enabled(false);
  EXPECT_EQ(errorOf([&] { edit().hotspot(0, 4, false); }), 70);
  EXPECT_EQ(errorOf([&] { edit().menu(); }), 70);
  EXPECT_EQ(heard.size(), 3U);
}

TEST_F(ChartTest, OpensACopyOnlyWithPermission) {
  int opened = 0;
  edit().maximizing.connect([&] { ++opened; });
  edit().Maximize();
  EXPECT_EQ(opened, 0);
  edit().MaximizeAllowed(true);
  edit().Maximize();
  EXPECT_EQ(opened, 1);
}

TEST_F(ChartTest, TellsTheFirstZoomAndTheWayBack) {
  fill();
  int in = 0, out = 0;
  edit().ZoomIn.connect([&] { ++in; });
  edit().ZoomOut.connect([&] { ++out; });
  edit().undoZoom();
  EXPECT_EQ(out, 0);
  edit().zoom({0.2, 0.8, 2, 6});
  edit().zoom({0.3, 0.7, 2, 6});
  EXPECT_EQ(in, 1);
  EXPECT_EQ(edit().shown(), (Chart::Range{0.3, 0.7, 2, 6}));
  EXPECT_EQ(edit().XMaximum(), 1.5F) << "the axis of the view stays";
  edit().undoZoom();
  EXPECT_EQ(out, 1);
  EXPECT_EQ(edit().shown(), (Chart::Range{0, 1.5, 0, 18}));
  EXPECT_EQ(errorOf([&] { edit().zoom({0.3, 0.3, 2, 6}); }), 5);
}

TEST_F(ChartTest, ShowsTheWholeAgainWhenAnAxisGetsAnotherRange) {
  fill();
  int out = 0;
  edit().ZoomOut.connect([&] { ++out; });
  edit().zoom({0.2, 0.8, 2, 6});
  edit().XMaximum(1.5F);
  EXPECT_TRUE(edit().isZoomed()) << "the same range";
  edit().XMaximum(1.1F);
  EXPECT_FALSE(edit().isZoomed());
  EXPECT_EQ(out, 1);
}

TEST_F(ChartTest, ZoomsToTheSamplesAndTheCurvesAroundThem) {
  fill();
  edit().zoomToSamples();
  const Chart::Range shown = edit().shown();
  EXPECT_TRUE(shown.xMinimum < 0.5 && shown.xMaximum > 0.5 && shown.xMaximum < 1) << shown.xMinimum << " " << shown.xMaximum;
  EXPECT_TRUE(shown.yMinimum < 4 && shown.yMaximum > 5 && shown.yMaximum < 6) << shown.yMinimum << " " << shown.yMaximum;
}

TEST_F(ChartTest, ZoomsToTheCurvesWhereThereIsNoSample) {
  fill();
  edit().XValue(0, 3, Chart::kNull);
  edit().zoomToSamples();
  EXPECT_EQ(edit().shown().xMaximum, 1.5);
  for (int point = 0; point < 3; ++point) edit().XValue(1, point, Chart::kNull);
  edit().undoZoom();
  edit().zoomToSamples();
  EXPECT_FALSE(edit().isZoomed()) << "nothing is drawn";
}

TEST_F(ChartTest, HasItsPropertiesByName) {
  edit().set("XMaximum", {}, std::string("1.5"));
  edit().set("YMaximum", {}, 18);
  edit().set("YLabel", {}, std::string("%"));
  edit().set("MaximizeAllowed", {}, true);
  EXPECT_EQ(edit().get("XMaximum", {}), Value("1.5"));
  EXPECT_EQ(edit().get("YMaximum", {}), Value("18"));
  EXPECT_EQ(edit().get("YLabel", {}), Value("%"));
  EXPECT_EQ(edit().get("MaximizeAllowed", {}), Value(true));
  EXPECT_EQ(edit().get("Tag", {}), Value("ctr_x"));
  EXPECT_EQ(errorOf([&] { edit().set("XTick", {}, std::string("wide")); }), 13);
  EXPECT_EQ(errorOf([&] { edit().get("Caption", {}); }), 438);
}

TEST_F(ChartTest, MayEndItsViewInAClick) {
  const int ended = TestView::ended;
  edit().DataHotSpot.connect([&](bool, int, int) { view = nullptr; });
  edit().hotspot(0, 0, false);
  EXPECT_EQ(TestView::ended, ended + 1);
}

// --- its menu

class ChartMenuTest : public testing::Test {
 protected:
  ChartMenuTest() {
    view = TestView::place(desktop, [](TestView& at, Form& form) {
      at.frame(form, "key", "date_key").row(at.make<Chart>("pesgoX"), "").hidden(at.make<CtrGraphMenu>("cgmX"), "");
    });
  }
  ~ChartMenuTest() override {
    desktop.setProbe(nullptr);
    view->Terminate();
  }
  Chart& chart() { return view->get<Chart>("pesgoX"); }
  CtrGraphMenu& menu() { return view->get<CtrGraphMenu>("cgmX"); }
  std::vector<std::string> offered() {
    std::vector<std::string> keys;
    for (int entry = 1; entry <= CtrGraphMenu::kEntries; ++entry)
      if (menu().isOffered(entry)) keys.emplace_back(CtrGraphMenu::keyOf(entry));
    return keys;
  }

  VirtualDesktop desktop;
  Ref<TestView> view;
};

TEST_F(ChartMenuTest, OpensOverAChartAndOffersWhatIsEnabled) {
  RecordingProbe probe;
  desktop.setProbe(&probe);
  CtrGraphMenu* opened = nullptr;
  chart().menuOpens.connect([&](CtrGraphMenu& at) { opened = &at; });
  EXPECT_THAT(offered(), IsEmpty());
  menu().Open(chart());
  EXPECT_EQ(opened, &menu());
  EXPECT_THAT(offered(), ElementsAre("copy", "savePng", "savePdf", "saveCsv", "print"));
  menu().Enabled(1, true);
  menu().Enabled(2, true);
  chart().MaximizeAllowed(true);
  menu().Enabled(CtrGraphMenu::Print, false);
  EXPECT_THAT(offered(), ElementsAre("zoomToSamples", "undoZoom", "maximize", "copy", "savePng", "savePdf", "saveCsv"));
  EXPECT_THAT(probe.calls.take(), ElementsAre("cgmX.Open pesgoX", "cgmX.Enabled(1) = true", "cgmX.Enabled(2) = true", "pesgoX.MaximizeAllowed = true",
                                              "cgmX.Enabled(8) = false"));
}

TEST_F(ChartMenuTest, DoesToTheChartWhatIsChosen) {
  int copies = 0;
  chart().maximizing.connect([&] { ++copies; });
  chart().MaximizeAllowed(true);
  chart().zoom({0, 0.5, 0, 0.5});
  EXPECT_EQ(errorOf([&] { menu().choose("maximize"); }), 70) << "it is not open";
  menu().Open(chart());
  EXPECT_EQ(errorOf([&] { menu().choose("undoZoom"); }), 70) << "it is disabled";
  menu().Enabled(2, true);
  menu().choose("undoZoom");
  EXPECT_FALSE(chart().isZoomed());
  menu().choose("maximize");
  EXPECT_EQ(copies, 1);
  menu().choose(CtrGraphMenu::SavePdf);
  EXPECT_EQ(copies, 1) << "saving is not the chart's affair";
  EXPECT_EQ(errorOf([&] { menu().choose("rotate"); }), 70);
}

TEST_F(ChartMenuTest, HasItsEntriesByNumber) {
  menu().set("Enabled", std::array{2}, true);
  EXPECT_EQ(menu().get("Enabled", std::array{2}), Value(true));
  EXPECT_EQ(menu().get("Enabled", std::array{1}), Value(false));
  EXPECT_EQ(menu().get("Enabled", {}), Value(true)) << "the control itself";
  EXPECT_EQ(errorOf([&] { menu().Enabled(9); }), 9);
  EXPECT_EQ(errorOf([&] { menu().Enabled(0, true); }), 9);
}

}  // namespace
}  // namespace ostrand
