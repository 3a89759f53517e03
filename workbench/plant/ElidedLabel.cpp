#include "workbench/plant/ElidedLabel.h"

#include <QPainter>
#include <algorithm>

namespace ostrand {

QSize ElidedLabel::minimumSizeHint() const { return {std::min(sizeHint().width(), 12 * fontMetrics().averageCharWidth()), sizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  setToolTip(fontMetrics().horizontalAdvance(text()) > contentsRect().width() ? text() : QString());
}

}  // namespace ostrand
