#include "workbench/render/ChartPlot.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Component.h"
#include "workbench/render/ChartMark.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

namespace {

constexpr double kMarkReach = 14;  // how far from a point it is still meant, in pixels at scale 1
constexpr double kLineReach = 8;
constexpr int kMostTicks = 60;
const char* const kMarksLayer = "marks";  // a sample is not hidden by a curve

// Lines are told apart without their colours.
constexpr Qt::PenStyle kPatterns[Chart::kSeries] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine, Qt::SolidLine};
constexpr double kWidths[Chart::kSeries] = {2, 2, 2, 2.5, 3};

bool isOfMarks(const Chart& chart, int series) { return chart.series(series).style == Chart::Style::Marks; }

// In lines that are no wider, broken between words.
QString wrapped(const QString& text, const QFont& font, int width) {
  const QFontMetrics metrics(font);
  QString lines, line;
  for (const QString& word : text.split(QLatin1Char(' '))) {
    if (!line.isEmpty() && metrics.horizontalAdvance(line + QLatin1Char(' ') + word) > width) {
      lines += line + QLatin1Char('\n');
      line = word;
    } else {
      line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
  }
  return lines + line;
}

QLocale localeOf(const Chart& chart) {
  QLocale locale(chart.owner() ? toQt(chart.owner()->desktop().locale().name) : QStringLiteral("en"));
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale;
}

}  // namespace

ChartPlot::ChartPlot(Chart& model, QWidget* parent)
    : QCustomPlot(parent), mModel(model), mTheme(Theme::make(Theme::Kind::Light)), mMessage(new QCPItemText(this)) {
  mListening = model.changed.connect([this] { mIsStale = true; });
  // The legend stands above the plane, where it hides nothing.
  axisRect()->insetLayout()->take(legend);
  plotLayout()->insertRow(0);
  plotLayout()->addElement(0, 0, legend);
  plotLayout()->setRowStretchFactor(0, 0.001);
  legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
  legend->setBorderPen(Qt::NoPen);
  legend->setBrush(Qt::NoBrush);
  legend->setVisible(true);
  axisRect()->setupFullAxesBox();
  for (QCPAxis* const axis : {xAxis2, yAxis2}) axis->setTicks(false);
  for (QCPAxis* const axis : {xAxis, yAxis}) {
    axis->setNumberFormat(QStringLiteral("g"));
    axis->grid()->setZeroLinePen(Qt::NoPen);
  }
  setAutoAddPlottableToLegend(false);
  addLayer(QString::fromLatin1(kMarksLayer), layer(QStringLiteral("main")));
  makeSeries();
  mMessage->setPositionAlignment(Qt::AlignCenter);
  mMessage->setTextAlignment(Qt::AlignCenter);
  mMessage->setLayer(QStringLiteral("overlay"));
}

ChartPlot::~ChartPlot() { mModel.changed.disconnect(mListening); }

void ChartPlot::makeSeries() {
  for (int series = 0; series < Chart::kSeries; ++series) {
    auto* const plottable = isOfMarks(mModel, series) ? static_cast<QCPAbstractPlottable*>(marks(series, 0)) : new QCPCurve(xAxis, yAxis);
    auto* const item = new QCPPlottableLegendItem(legend, plottable);
    legend->addItem(item);
    mEntries.push_back({plottable, item});
  }
}

// --- how it looks

void ChartPlot::restyle(const Theme& theme) {
  mTheme = theme;
  setBackground(QBrush(theme.surface));
  const QFont small = theme.font(Theme::Text::Small);
  for (QCPAxis* const axis : {xAxis, yAxis, xAxis2, yAxis2}) {
    const QPen line(theme.outline, theme.px(1));
    axis->setBasePen(line);
    axis->setTickPen(line);
    axis->setSubTickPen(line);
    axis->setTickLength(0, theme.px(5));
    axis->setSubTickLength(0, theme.px(3));
    axis->setTickLabelFont(small);
    axis->setTickLabelColor(theme.text);
    axis->setTickLabelPadding(theme.px(6));
    axis->setLabelFont(theme.font());
    axis->setLabelColor(theme.text);
    axis->setLabelPadding(theme.px(6));
  }
  legend->setFont(small);
  legend->setIconSize(theme.px(34), theme.px(16));
  legend->setIconTextPadding(theme.px(8));
  legend->setColumnSpacing(theme.px(18));
  legend->setRowSpacing(theme.px(2));
  legend->setMargins(QMargins(theme.px(8), theme.px(4), theme.px(8), theme.px(4)));
  plotLayout()->setRowSpacing(theme.px(4));
  axisRect()->setMinimumMargins(QMargins(0, theme.px(8), theme.px(20), 0));  // the last tick's label hangs over
  mMessage->setFont(theme.font(Theme::Text::Strong));
  mMessage->setColor(theme.text);
  mMessage->setBrush(QBrush(theme.raised));
  mMessage->setPen(QPen(theme.caution, theme.px(2)));
  const int room = theme.px(10);
  mMessage->setPadding(QMargins(room, room, room, room));
  mIsStale = true;
}

QPen ChartPlot::pen(int series) const {
  QPen pen(mTheme.drawn(mModel.series(series).color), kWidths[series] * mTheme.scale, kPatterns[series], Qt::FlatCap, Qt::RoundJoin);
  return pen;
}

// --- following the model

void ChartPlot::follow() {
  if (!mIsStale) return;
  mIsStale = false;
  setLocale(localeOf(mModel));
  QColor grid = mTheme.color(mModel.gridColor());
  grid.setAlphaF(0.28F);
  for (QCPAxis* const axis : {xAxis, yAxis}) axis->grid()->setPen(QPen(grid, mTheme.px(1)));
  const Chart::Range shown = mModel.shown();
  followAxis(*xAxis, mModel.x(), shown.xMinimum, shown.xMaximum);
  followAxis(*yAxis, mModel.y(), shown.yMinimum, shown.yMaximum);
  followTitle();
  followSeries();
  arrangeLegend();
  followMessage();
  replot(rpQueuedRefresh);
}

void ChartPlot::followAxis(QCPAxis& axis, const Chart::Axis& model, double minimum, double maximum) {
  if (axis.label() != toQt(model.label)) axis.setLabel(toQt(model.label));
  if (std::isfinite(minimum) && std::isfinite(maximum) && minimum < maximum) axis.setRange(minimum, maximum);
  const double ticks = model.tick > 0 ? (axis.range().size() / model.tick) : 0;
  if (ticks >= 1 && ticks <= kMostTicks) {
    const QSharedPointer<QCPAxisTickerFixed> fixed(new QCPAxisTickerFixed);
    fixed->setTickStep(model.tick);
    axis.setTicker(fixed);
  } else {
    axis.setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
  }
}

// A title of blanks takes no room.
void ChartPlot::followTitle() {
  const QString text = QStringList{toQt(mModel.title()[0]).trimmed(), toQt(mModel.title()[1]).trimmed()}.join(QLatin1Char('\n')).trimmed();
  if (text.isEmpty()) {
    if (std::exchange(mTitle, nullptr)) {
      plotLayout()->removeAt(plotLayout()->rowColToIndex(0, 0));
      plotLayout()->simplify();
    }
    return;
  }
  if (!mTitle) {
    mTitle = new QCPTextElement(this);
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, mTitle);
  }
  mTitle->setText(text);
  mTitle->setFont(mTheme.font(Theme::Text::Strong));
  mTitle->setTextColor(mTheme.text);
}

void ChartPlot::followSeries() {
  for (int series = 0; series < Chart::kSeries; ++series) {
    const Entry& entry = mEntries[static_cast<std::size_t>(series)];
    auto* const curve = qobject_cast<QCPCurve*>(entry.plottable);
    const int drawn = curve ? followLine(series, *curve) : followMarks(series);
    entry.plottable->setName(toQt(mModel.series(series).label));
    entry.item->setFont(legend->font());
    entry.item->setTextColor(drawn > 0 ? mTheme.text : mTheme.disabledText);
  }
}

int ChartPlot::followLine(int series, QCPCurve& curve) {
  QVector<QCPCurveData> points;
  points.reserve(Chart::kPoints);
  int drawn = 0;
  for (int i = 0; i < Chart::kPoints; ++i) {
    const Chart::Point point = mModel.point(series, i);
    drawn += point.isDrawn();
    // What is not drawn leaves a gap.
    points.append(point.isDrawn() ? QCPCurveData(i, point.x, point.y) : QCPCurveData(i, qQNaN(), qQNaN()));
  }
  if (drawn == 0) points.clear();
  curve.data()->set(points, true);
  curve.setPen(pen(series));
  return drawn;
}

QCPGraph* ChartPlot::marks(int series, std::size_t look) {
  std::vector<QCPGraph*>& all = mMarks[static_cast<std::size_t>(series)];
  while (all.size() <= look) {
    all.push_back(addGraph());
    all.back()->setLayer(QString::fromLatin1(kMarksLayer));
    all.back()->setLineStyle(QCPGraph::lsNone);
    all.back()->setAdaptiveSampling(false);
  }
  return all[look];
}

// Marks of one look are one graph. The first look is what the legend shows.
int ChartPlot::followMarks(int series) {
  for (QCPGraph* const graph : mMarks[static_cast<std::size_t>(series)]) graph->data()->clear();
  std::vector<ChartMark> looks;
  int drawn = 0;
  for (int i = 0; i < Chart::kPoints; ++i) {
    const Chart::Point point = mModel.point(series, i);
    if (!point.isDrawn()) continue;
    ++drawn;
    const ChartMark look{point.type, mTheme.drawn(point.color)};
    const auto at = std::find(looks.begin(), looks.end(), look);
    const auto number = static_cast<std::size_t>(at - looks.begin());
    if (at == looks.end()) looks.push_back(look);
    marks(series, number)->setScatterStyle(look.style(mTheme));
    marks(series, number)->addData(point.x, point.y);
  }
  if (drawn == 0) marks(series, 0)->setScatterStyle(ChartMark{0, mTheme.drawn(mModel.series(series).color)}.style(mTheme));
  return drawn;
}

void ChartPlot::followMessage() {
  const QString text = toQt(mModel.annotationText());
  mMessage->setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  mMessage->setText(wrapped(text, mMessage->font(), std::max(mTheme.px(120), axisRect()->width() * 3 / 4)));
  if (mModel.isZoomed()) {  // the place of the message is that of the whole
    mMessage->position->setType(QCPItemPosition::ptAxisRectRatio);
    mMessage->position->setCoords(0.5, 0.5);
  } else {
    mMessage->position->setType(QCPItemPosition::ptPlotCoords);
    mMessage->position->setCoords(mModel.annotationX(), mModel.annotationY());
  }
}

// As many entries in a line as have room, in lines of about the same length.
void ChartPlot::arrangeLegend() {
  const QFontMetrics metrics(legend->font());
  int widest = 1;
  for (const Entry& entry : mEntries) widest = std::max(widest, metrics.horizontalAdvance(entry.plottable->name()));
  widest += legend->iconSize().width() + legend->iconTextPadding() + legend->columnSpacing();
  const int fit = std::clamp((width() - mTheme.px(40)) / widest, 1, Chart::kSeries);
  const int lines = (Chart::kSeries + fit - 1) / fit;
  const int columns = (Chart::kSeries + lines - 1) / lines;
  if (legend->wrap() == columns) return;
  legend->setWrap(columns);
  legend->setFillOrder(QCPLayoutGrid::foColumnsFirst, true);
}

void ChartPlot::resizeEvent(QResizeEvent* event) {
  arrangeLegend();
  QCustomPlot::resizeEvent(event);
}

// --- points

QPointF ChartPlot::placeOf(const Spot& spot) const {
  const Chart::Point point = mModel.point(spot.series, spot.point);
  return {xAxis->coordToPixel(point.x), yAxis->coordToPixel(point.y)};
}

bool ChartPlot::isSeen(const Spot& spot) const {
  const Chart::Point point = mModel.point(spot.series, spot.point);
  return point.isDrawn() && xAxis->range().contains(point.x) && yAxis->range().contains(point.y);
}

std::optional<ChartPlot::Spot> ChartPlot::spotAt(const QPointF& at) const {
  for (const bool wantsMarks : {true, false}) {
    std::optional<Spot> nearest;
    double reach = (wantsMarks ? kMarkReach : kLineReach) * mTheme.scale;
    for (int series = 0; series < Chart::kSeries; ++series)
      for (int i = 0; i < Chart::kPoints && isOfMarks(mModel, series) == wantsMarks; ++i) {
        const Spot spot{series, i};
        if (!isSeen(spot)) continue;
        const QPointF away = placeOf(spot) - at;
        const double distance = std::hypot(away.x(), away.y());
        if (distance > reach) continue;
        reach = distance;
        nearest = spot;
      }
    if (nearest) return nearest;
  }
  return std::nullopt;
}

std::vector<ChartPlot::Spot> ChartPlot::seenMarks() const {
  std::vector<Spot> all;
  for (int series = 0; series < Chart::kSeries; ++series)
    for (int i = 0; i < Chart::kPoints && isOfMarks(mModel, series); ++i)
      if (isSeen({series, i})) all.push_back({series, i});
  std::stable_sort(all.begin(), all.end(), [this](const Spot& a, const Spot& b) { return placeOf(a).x() < placeOf(b).x(); });
  return all;
}

QString ChartPlot::words(const Spot& spot) const {
  if (const std::string& text = mModel.pointText(spot.series, spot.point); !text.empty()) return toQt(text);
  const Chart::Point point = mModel.point(spot.series, spot.point);
  const auto line = [this](const std::string& label, double value) {
    return QLatin1Char('\n') + toQt(label) + (label.empty() ? QString() : QStringLiteral(": ")) + locale().toString(value, 'g', 4);
  };
  return (toQt(mModel.series(spot.series).label) + line(mModel.x().label, point.x) + line(mModel.y().label, point.y)).trimmed();
}

}  // namespace ostrand
