#include "workbench/plant/DevicePicture.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

namespace ostrand {

namespace {

// Painted at the size that is shown, so that it stays sharp. One that cannot be read counts as absent.
QPixmap fromSvg(const Picture& picture, int height, double pixelRatio) {
  QSvgRenderer drawing(QByteArray::fromRawData(picture.svg.data(), static_cast<qsizetype>(picture.svg.size())));
  const QSizeF size = drawing.isValid() ? drawing.viewBoxF().size() : QSizeF();
  if (size.isEmpty()) return {};
  const double scale = height * pixelRatio / size.height();
  QPixmap pixmap((size * scale).toSize());
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  drawing.render(&painter, QRectF(pixmap.rect()));
  painter.end();
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

QPixmap placeholder(const Theme& theme, int height, double pixelRatio) {
  const int width = height;
  QPixmap pixmap(static_cast<int>(std::lround(width * pixelRatio)), static_cast<int>(std::lround(height * pixelRatio)));
  pixmap.setDevicePixelRatio(pixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(height / 100.0, height / 100.0);
  const QPen edge(theme.secondaryText, 3.0);
  // The pipe with the pulp in it, the blade, the neck, the housing with its display.
  painter.setPen(edge);
  painter.setBrush(theme.raised);
  painter.drawRoundedRect(QRectF(4, 66, 92, 26), 4, 4);
  painter.setBrush(theme.line);
  painter.drawRect(QRectF(46, 50, 8, 20));
  painter.setPen(QPen(theme.accent, 5.0, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(50, 72), QPointF(50, 86));
  painter.setPen(edge);
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(QRectF(24, 8, 52, 42), 9, 9);
  painter.setBrush(theme.selection);
  painter.drawRoundedRect(QRectF(34, 18, 32, 18), 3, 3);
  return pixmap;
}

}  // namespace

QPixmap devicePixmap(const Picture& picture, const Theme& theme, int height, double pixelRatio) {
  const QPixmap drawn = fromSvg(picture, height, pixelRatio);
  return drawn.isNull() ? placeholder(theme, height, pixelRatio) : drawn;
}

QPixmap logoPixmap(const Picture& picture, int height, double pixelRatio) { return fromSvg(picture, height, pixelRatio); }

}  // namespace ostrand
