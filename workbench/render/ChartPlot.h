#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/controls/Chart.h"
#include "workbench/render/Plot.h"
#include "workbench/render/Theme.h"

namespace ostrand {

// The picture of a chart: axes, legend, marks and lines, the text in its middle. It follows the model when it is told to and
// paints only if something has changed; it knows nothing of a user. The model must outlive it.
class ChartPlot : public QCustomPlot {
 public:
  explicit ChartPlot(Chart& model, QWidget* parent = nullptr);
  ~ChartPlot() override;

  void restyle(const Theme& theme);
  // Brings the picture up to date.
  void follow();
  const Theme& theme() const { return mTheme; }

  struct Spot {
    int series;
    int point;
    friend bool operator==(const Spot&, const Spot&) = default;
  };
  // The drawn point at this place of the widget, a mark rather than a point of a line; nothing if none is near.
  std::optional<Spot> spotAt(const QPointF& at) const;
  QPointF placeOf(const Spot& spot) const;
  bool isSeen(const Spot& spot) const;
  // The marks that are seen, from left to right.
  std::vector<Spot> seenMarks() const;
  // What the point is, in words, a line each.
  QString words(const Spot& spot) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  Chart& model() const { return mModel; }

 private:
  struct Entry {
    QCPAbstractPlottable* plottable;
    QCPPlottableLegendItem* item;
  };
  void makeSeries();
  void followAxis(QCPAxis& axis, const Chart::Axis& model, double minimum, double maximum);
  void followTitle();
  void followSeries();
  int followLine(int series, QCPCurve& curve);
  int followMarks(int series);
  QCPGraph* marks(int series, std::size_t look);
  void followMessage();
  void arrangeLegend();
  QPen pen(int series) const;

  Chart& mModel;
  Signal<>::Id mListening;
  Theme mTheme;
  bool mIsStale = true;
  QCPTextElement* mTitle = nullptr;
  std::vector<Entry> mEntries;                                // the legend, by series
  std::array<std::vector<QCPGraph*>, Chart::kSeries> mMarks;  // one for each look that marks of the series have
  QCPItemText* mMessage;
};

}  // namespace ostrand
