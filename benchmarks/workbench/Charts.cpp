#include "benchmarks/workbench/Charts.h"

#include <QApplication>
#include <algorithm>
#include <memory>

#include "benchmarks/Placed.h"
#include "core/View.h"
#include "platform/controls/Chart.h"
#include "workbench/render/Plot.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand::bench {

namespace {

constexpr QSize kSize(800, 500);
constexpr int kSamples = 17;
constexpr int kCurves[] = {1, 2, 4};
const char* const kLabels[Chart::kSeries] = {"Sample points", "Basic tuning", "Polynome", "Not in use", "Calibration"};

float torqueOf(int point) { return 1.5F * static_cast<float>(point) / (Chart::kPoints - 1); }
float consistencyOf(int series, float x) { return 1.2F + 7.5F * x - 2.1F * x * x + 1.1F * x * x * x + 0.4F * static_cast<float>(series); }
float torqueOfSample(int row) { return 0.25F + 0.025F * static_cast<float>(row); }
bool isChosen(int row) { return row == 3 || row == 12; }

// What waits, and what that has brought.
void paint() {
  for (int turn = 0; turn < 2; ++turn) QApplication::processEvents();
}

// A view with nothing but a chart.
class ChartBenchView : public View {
 public:
  ChartBenchView() : View("ChartBenchView", "bench") {}

  Chart pesgoValidation{"pesgoValidation"};

 protected:
  void declare(Form& form) override { form.rows().fill(pesgoValidation, ""); }
};

struct OurChart {
  OurChart() : placed(new ChartBenchView), chart(static_cast<ChartBenchView&>(*placed.view).pesgoValidation) {
    for (int series = 0; series < Chart::kSeries; ++series) chart.SeriesLabel(series, kLabels[series]);
    chart.SeriesStyle(0, Chart::Style::Marks);
    chart.XMaximum(1.5F), chart.YMaximum(18.001F);
    chart.XLabel("Torque / Nm"), chart.YLabel("Lab / %Cs");
    for (const int series : kCurves)
      for (int i = 0; i < Chart::kPoints; ++i) {
        chart.XValue(series, i, torqueOf(i));
        chart.YValue(series, i, consistencyOf(series, torqueOf(i)));
      }
    for (int row = 0; row < kSamples; ++row) {
      chart.XValue(0, row, torqueOfSample(row));
      chart.PointColor(0, row, {Color::Role::Given, isChosen(row) ? 0x0000FF : 0x888866});
      chart.PointType(0, row, isChosen(row) ? 9 : 3);
    }
    sample(0.0F);
    panel.setTheme(Theme::make(Theme::Kind::Light));
    panel.setView(placed.as<ITaviView>());
    panel.resize(kSize);
    panel.show();
    paint();
    plot = dynamic_cast<QCustomPlot*>(panel.widgetOf(chart));
    panel.resize(kSize + kSize - plot->size());
    paint();
  }
  ~OurChart() { panel.setView(nullptr), paint(); }
  // The samples go up and down.
  void move() { sample((isUp = !isUp) ? 0.3F : 0.0F); }
  void sample(float shift) {
    for (int row = 0; row < kSamples; ++row) {
      chart.YValue(0, row, consistencyOf(1, torqueOfSample(row)) + shift);
      chart.Rebuild(0);
    }
  }

  Placed placed;
  Chart& chart;
  ViewPanel panel;
  QCustomPlot* plot = nullptr;
  bool isUp = false;
};

struct TheirChart {
  TheirChart() {
    const Theme theme = Theme::make(Theme::Kind::Light);
    plot.setBackground(QBrush(theme.surface));
    plot.axisRect()->insetLayout()->take(plot.legend);
    plot.plotLayout()->insertRow(0);
    plot.plotLayout()->addElement(0, 0, plot.legend);
    plot.plotLayout()->setRowStretchFactor(0, 0.001);
    plot.legend->setVisible(true);
    plot.legend->setFont(theme.font(Theme::Text::Small));
    plot.legend->setBorderPen(Qt::NoPen);
    plot.legend->setIconSize(34, 16);
    plot.legend->setWrap(Chart::kSeries);
    plot.legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    plot.axisRect()->setupFullAxesBox();
    for (QCPAxis* const axis : {plot.xAxis, plot.yAxis}) {
      axis->setTickLabelFont(theme.font(Theme::Text::Small));
      axis->setLabelFont(theme.font());
    }
    plot.xAxis->setRange(0, 1.5), plot.yAxis->setRange(0, 18.001);
    plot.xAxis->setLabel(QStringLiteral("Torque / Nm")), plot.yAxis->setLabel(QStringLiteral("Lab / %Cs"));
    const Qt::PenStyle patterns[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine, Qt::SolidLine};
    const double widths[] = {2, 2, 2, 2.5, 3};
    for (const bool chosen : {false, true}) {
      QCPGraph* const graph = plot.addGraph();
      const QColor color = chosen ? QColor(Qt::blue) : QColor(0x88, 0x88, 0x66);
      graph->setLineStyle(QCPGraph::lsNone);
      graph->setScatterStyle(
          {chosen ? QCPScatterStyle::ssTriangle : QCPScatterStyle::ssCircle, QPen(theme.surface, 1), QBrush(color), chosen ? 15.0 : 10.0});
      graph->setName(QString::fromLatin1(kLabels[0]));
      if (chosen) graph->removeFromLegend();
    }
    for (int series = 1; series < Chart::kSeries; ++series) {
      auto* const curve = new QCPCurve(plot.xAxis, plot.yAxis);
      curve->setName(QString::fromLatin1(kLabels[series]));
      curve->setPen(QPen(theme.text, widths[series], patterns[series], Qt::FlatCap, Qt::RoundJoin));
      if (std::find(std::begin(kCurves), std::end(kCurves), series) == std::end(kCurves)) continue;
      for (int i = 0; i < Chart::kPoints; ++i) curve->addData(i, torqueOf(i), consistencyOf(series, torqueOf(i)));
    }
    plot.resize(kSize);
    plot.show();
    sample(0.0F);
    paint();
  }
  void move() { sample((isUp = !isUp) ? 0.3F : 0.0F); }
  void sample(float shift) {
    for (const bool chosen : {false, true}) {
      plot.graph(chosen)->data()->clear();
      for (int row = 0; row < kSamples; ++row)
        if (isChosen(row) == chosen) plot.graph(chosen)->addData(torqueOfSample(row), consistencyOf(1, torqueOfSample(row)) + shift);
    }
    plot.replot(QCustomPlot::rpQueuedRefresh);
  }

  QCustomPlot plot;
  bool isUp = false;
};

template <class Shown>
Work painting(std::string name) {
  const auto shown = std::make_shared<std::unique_ptr<Shown>>();
  return {std::move(name), [=](Meter& meter) {
            if (!*shown) *shown = std::make_unique<Shown>();
            meter.measure([&] {
              (*shown)->move();
              paint();
            });
          }};
}

}  // namespace

Work paintChart() { return painting<OurChart>("chart by ostrand"); }

Work paintChartByHand() { return painting<TheirChart>("chart by hand"); }

double paintsOfAnAnswer() {
  OurChart at;
  double paints = 0;
  QObject::connect(at.plot, &QCustomPlot::afterReplot, at.plot, [&] { ++paints; });
  at.move();
  paint();
  return paints;
}

}  // namespace ostrand::bench
