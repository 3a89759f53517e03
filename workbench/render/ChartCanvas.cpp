#include "workbench/render/ChartCanvas.h"

#include <QApplication>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace ostrand {

namespace {

constexpr double kZoomStep = 0.8;       // of what is seen, for one notch of the wheel
constexpr double kNotch = 120;          // of a wheel, in eighths of a degree
constexpr double kSmallestPart = 1e-3;  // of the whole: nothing is to be seen that a single can tell

class Ring : public QWidget {
 public:
  explicit Ring(const ChartPlot& over, QWidget* parent) : QWidget(parent), mOver(over) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = mOver.theme().px(2);
    painter.setPen(QPen(mOver.theme().accent, width));
    painter.drawEllipse(QRectF(rect()).adjusted(width, width, -width, -width));
  }

 private:
  const ChartPlot& mOver;
};

// A stretch of an axis, moved so that it ends at most one length of the whole outside of it.
void keepNear(double& low, double& high, double wholeLow, double wholeHigh) {
  const double length = wholeHigh - wholeLow;
  const double size = std::clamp(high - low, length * kSmallestPart, 3 * length);
  low = std::clamp(low, wholeLow - length, wholeHigh + length - size);
  high = low + size;
}

}  // namespace

ChartCanvas::ChartCanvas(Chart& model, QWidget* parent) : ChartPlot(model, parent), mRing(new Ring(*this, this)), mUndoZoom(new QPushButton(this)) {
  mUndoZoom->setFocusPolicy(Qt::NoFocus);
  mUndoZoom->setCursor(Qt::ArrowCursor);
  mUndoZoom->hide();
  QObject::connect(mUndoZoom, &QPushButton::clicked, this, [this] { onUndoZoom(); });
  setMouseTracking(true);
}

void ChartCanvas::restyle(const Theme& theme) {
  ChartPlot::restyle(theme);
  placeRing();
  mUndoZoom->setFont(theme.font(Theme::Text::Small));
  placeButton();
}

void ChartCanvas::setUndoText(const QString& text) {
  if (mUndoZoom->text() == text) return;
  mUndoZoom->setText(text);
  placeButton();
}

void ChartCanvas::follow() {
  ChartPlot::follow();
  if (mUndoZoom->isHidden() == model().isZoomed()) {
    mUndoZoom->setVisible(model().isZoomed());
    placeButton();
  }
  if (mSpot && !isSeen(*mSpot)) point(std::nullopt);
  placeRing();
}

void ChartCanvas::placeRing() {
  mRing->setVisible(mSpot.has_value());
  if (!mSpot) return;
  const int size = theme().px(22);
  const QPoint centre = placeOf(*mSpot).toPoint();
  mRing->setGeometry(centre.x() - size / 2, centre.y() - size / 2, size, size);
}

// In the corner of the plane where a curve that rises ends last.
void ChartCanvas::placeButton() {
  mUndoZoom->resize(mUndoZoom->sizeHint());
  const QRect plane = axisRect()->rect();
  const int gap = theme().px(6);
  mUndoZoom->move(plane.right() - mUndoZoom->width() - gap, plane.bottom() - mUndoZoom->height() - gap);
}

void ChartCanvas::resizeEvent(QResizeEvent* event) {
  ChartPlot::resizeEvent(event);
  placeButton();
  placeRing();
}

// --- pointing

void ChartCanvas::point(const std::optional<Spot>& spot) {
  mSpot = spot;
  placeRing();
  if (spot)
    QToolTip::showText(mapToGlobal(placeOf(*spot).toPoint() + QPoint(0, theme().px(8))), pointedAt(), this);
  else
    QToolTip::hideText();
  setAccessibleDescription(spot ? words(*spot) : QString());
}

QString ChartCanvas::pointedAt() const {
  if (!mSpot) return {};
  return QStringLiteral("<p style='white-space:pre'>") + words(*mSpot).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")) +
         QStringLiteral("</p>");
}

void ChartCanvas::step(int by) {
  const std::vector<Spot> marks = seenMarks();
  if (marks.empty()) return;
  const auto last = static_cast<int>(marks.size()) - 1;
  const auto at = mSpot ? std::find(marks.begin(), marks.end(), *mSpot) : marks.end();
  const int number = at == marks.end() ? (by > 0 ? 0 : last) : std::clamp(static_cast<int>(at - marks.begin()) + by, 0, last);
  point(marks[static_cast<std::size_t>(number)]);
}

void ChartCanvas::leaveEvent(QEvent* event) {
  if (mSpot && !hasFocus()) point(std::nullopt);
  QWidget::leaveEvent(event);
}

// --- what is seen

void ChartCanvas::show(Chart::Range range) {
  const Chart& chart = model();
  keepNear(range.xMinimum, range.xMaximum, chart.x().minimum, chart.x().maximum);
  keepNear(range.yMinimum, range.yMaximum, chart.y().minimum, chart.y().maximum);
  onZoom(range);
}

void ChartCanvas::zoomBy(double factor, const QPointF& around) {
  const double x = xAxis->pixelToCoord(around.x()), y = yAxis->pixelToCoord(around.y());
  const Chart::Range now = model().shown();
  show({x + (now.xMinimum - x) * factor, x + (now.xMaximum - x) * factor, y + (now.yMinimum - y) * factor, y + (now.yMaximum - y) * factor});
}

void ChartCanvas::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (const int turned = event->angleDelta().y()) zoomBy(std::pow(kZoomStep, turned / kNotch), event->position());
}

// --- mouse

void ChartCanvas::mousePressEvent(QMouseEvent* event) {
  event->accept();
  mDrag.reset();
  if (event->button() == Qt::LeftButton) mDrag = Drag{event->position(), model().shown()};
  if (event->button() == Qt::RightButton) onMenu(event->globalPosition().toPoint());
}

void ChartCanvas::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  const QPointF at = event->position();
  if (!mDrag) {
    if (const std::optional<Spot> spot = spotAt(at); spot != mSpot) point(spot);
    return;
  }
  if (!mDrag->isMoving && (at - mDrag->from).manhattanLength() < QApplication::startDragDistance()) return;
  if (!std::exchange(mDrag->isMoving, true)) {
    setCursor(Qt::ClosedHandCursor);
    if (mSpot) point(std::nullopt);
  }
  const QRect plane = axisRect()->rect();
  Chart::Range range = mDrag->range;
  const double x = (mDrag->from.x() - at.x()) / std::max(1, plane.width()) * (range.xMaximum - range.xMinimum);
  const double y = (at.y() - mDrag->from.y()) / std::max(1, plane.height()) * (range.yMaximum - range.yMinimum);
  show({range.xMinimum + x, range.xMaximum + x, range.yMinimum + y, range.yMaximum + y});
}

void ChartCanvas::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const std::optional<Drag> drag = std::exchange(mDrag, std::nullopt);
  unsetCursor();
  if (!drag || drag->isMoving || event->button() != Qt::LeftButton) return;
  if (const std::optional<Spot> spot = spotAt(event->position())) onSpot(*spot, false);
}

// The second click of two comes here in place of a press; the first has been one by itself.
void ChartCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  mDrag.reset();
  if (event->button() != Qt::LeftButton) return;
  if (const std::optional<Spot> spot = spotAt(event->position()))
    onSpot(*spot, true);
  else
    onUndoZoom();
}

// The menu of the mouse opens with the press of the button.
void ChartCanvas::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Mouse) return;
  onMenu(mapToGlobal(mSpot ? placeOf(*mSpot).toPoint() : axisRect()->center()));
}

// --- keys

bool ChartCanvas::key(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  switch (event.key()) {
    case Qt::Key_Left: return step(-1), true;
    case Qt::Key_Right: return step(1), true;
    case Qt::Key_Plus: return zoomBy(kZoomStep, axisRect()->center()), true;
    case Qt::Key_Minus: return zoomBy(1 / kZoomStep, axisRect()->center()), true;
    case Qt::Key_0: return onUndoZoom(), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!mSpot) return false;
      onSpot(*mSpot, event.key() == Qt::Key_Space);
      return true;
    default: return false;
  }
}

void ChartCanvas::keyPressEvent(QKeyEvent* event) {
  if (!key(*event)) ChartPlot::keyPressEvent(event);
}

}  // namespace ostrand
