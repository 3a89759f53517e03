#pragma once

#include <cmath>
#include <cstdlib>

#include "platform/controls/CtrGraphMenu.h"
#include "workbench/render/ChartWindow.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

// Three curves of a pulp and 17 samples beside them, two of them chosen, as a recipe shows them.
inline void fillChart(Chart& chart) {
  constexpr float kFirst = 0.25F, kStep = 0.025F;
  const std::array<Color, Chart::kSeries> colors{Color::disabledText(), Color::text(), Color::text(), Color{Color::Role::Given, 0x00FF00},
                                                 Color{Color::Role::Given, 0x0000FF}};
  const char* const labels[Chart::kSeries] = {"Sample points", "Basic tuning", "Polynome", "Not in use", "Calibration"};
  for (int series = 0; series < Chart::kSeries; ++series) {
    chart.SeriesLabel(series, labels[series]);
    chart.SeriesColor(series, colors[static_cast<std::size_t>(series)]);
  }
  chart.SeriesStyle(0, Chart::Style::Marks);
  chart.XMaximum(1.5F);
  chart.YMaximum(18.001F);
  chart.XLabel("Torque / Nm");
  chart.YLabel("Lab / %Cs");
  chart.AnnotationX(0.75F);
  chart.AnnotationY(9.0005F);
  const auto consistency = [](double x) { return 1.2 + 7.5 * x - 2.1 * x * x + 1.1 * x * x * x; };
  for (const int series : {1, 2, 4})
    for (int i = 0; i < Chart::kPoints; ++i) {
      const double x = 1.5 * i / (Chart::kPoints - 1);
      chart.XValue(series, i, static_cast<float>(x));
      chart.YValue(series, i, static_cast<float>(consistency(x) * (series == 4 ? 1.15 : 1.0) + (series == 2 ? -0.6 : 0.0)));
    }
  for (int row = 0; row < 17; ++row) {
    const float x = kFirst + kStep * static_cast<float>(row);
    chart.XValue(0, row, x);
    chart.YValue(0, row, static_cast<float>(consistency(x) * 1.15 + 0.35 * std::sin(row * 2.1)));
    const bool isChosen = row == 3 || row == 12;
    chart.PointColor(0, row, {Color::Role::Given, isChosen ? 0x0000FF : 0x888866});
    chart.PointType(0, row, isChosen ? 9 : 3);
  }
  chart.Rebuild(0);
}

// A view with a chart and its menu, as a recipe connects them.
class ChartBench : public PanelBench {
 protected:
  ChartBench() {
    view = TestView::place(desktop, [this](TestView& at, Form& form) {
      chart = &at.make<Chart>("pesgoX");
      menu = &at.make<CtrGraphMenu>("cgmX");
      at.frame(form, "key", "date_key").fill(*chart, "").hidden(*menu, "");
    });
    chart->MouseDown.connect([this] {
      chart->SetFocus();
      menu->Open(*chart);
    });
    chart->ZoomIn.connect([this] { menu->Enabled(2, true); });
    chart->ZoomOut.connect([this] { menu->Enabled(2, false); });
    chart->DataHotSpot.connect([this](bool twice, int series, int point) {
      spots.push_back((twice ? "twice " : "once ") + std::to_string(series) + " " + std::to_string(point));
    });
    chart->MaximizeAllowed(true);
    menu->Enabled(1, true);
    fillChart(*chart);
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }

  ChartCanvas& canvas() { return *widget<ChartCanvas>(*chart); }
  QPoint placeOf(int series, int point) { return canvas().placeOf({series, point}).toPoint(); }
  // A place of the plane at which nothing is drawn: below the curves, at the right.
  QPoint nowhere() { return canvas().axisRect()->rect().bottomRight() - QPoint(60, 60); }
  void grab(const std::string& name) {
    if (const char* const folder = std::getenv("OSTRAND_PICTURES"))
      panel.grab().save(QString::fromStdString(std::string(folder) + "/" + name + ".png"));
  }
  ChartWindow* window() {
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (auto* const found = dynamic_cast<ChartWindow*>(each)) return found;
    return nullptr;
  }

  Ref<TestView> view;
  Chart* chart = nullptr;
  CtrGraphMenu* menu = nullptr;
  std::vector<std::string> spots;
};

}  // namespace ostrand::test
