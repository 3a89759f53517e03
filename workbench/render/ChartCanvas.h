#pragma once

#include <functional>

#include "workbench/render/ChartPlot.h"

class QPushButton;

namespace ostrand {

// A chart in the user's hands. The wheel zooms, a drag moves what is seen; a point under the pointer is told in words. Without
// a mouse: the arrow keys go from mark to mark, Enter clicks and the blank clicks twice, + and - zoom, 0 shows the whole.
class ChartCanvas : public ChartPlot {
 public:
  ChartCanvas(Chart& model, QWidget* parent);

  // What the user does.
  std::function<void(const Spot& spot, bool twice)> onSpot;
  std::function<void(const Chart::Range& range)> onZoom;
  std::function<void()> onUndoZoom;
  std::function<void(const QPoint& global)> onMenu;

  void restyle(const Theme& theme);
  // The words on the button that shows the whole again.
  void setUndoText(const QString& text);
  void follow();
  // True if it is a key of the chart.
  bool key(const QKeyEvent& event);
  // The words of the point that is pointed at, as rich text; empty if there is none.
  QString pointedAt() const;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Drag {
    QPointF from;
    Chart::Range range;
    bool isMoving = false;
  };
  void point(const std::optional<Spot>& spot);
  void step(int by);
  void zoomBy(double factor, const QPointF& around);
  void show(Chart::Range range);
  void placeButton();
  void placeRing();

  std::optional<Drag> mDrag;
  std::optional<Spot> mSpot;
  QWidget* mRing;  // around the point that is pointed at: to move it paints nothing else anew
  QPushButton* mUndoZoom;
};

}  // namespace ostrand
