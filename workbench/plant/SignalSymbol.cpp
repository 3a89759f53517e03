#include "workbench/plant/SignalSymbol.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace ostrand {

namespace {

struct Look {
  QRgb fill;
  QRgb ink;
};

Look lookOf(DeviceSignal signal) {
  if (!signal) return {0xff7a828c, 0xffffffff};
  switch (*signal) {
    case Ne107::Failure: return {0xffc62828, 0xffffffff};
    case Ne107::FunctionCheck: return {0xffe07b00, 0xff1a1200};
    case Ne107::OutOfSpecification: return {0xfff2c200, 0xff1f1a00};
    case Ne107::Maintenance: return {0xff1f6fc4, 0xffffffff};
    case Ne107::Good: break;
  }
  return {0xff2e7d32, 0xffffffff};
}

QPainterPath outline(DeviceSignal signal) {
  QPainterPath path;
  if (!signal)
    path.addRoundedRect(QRectF(8, 8, 84, 84), 14, 14);
  else if (*signal == Ne107::OutOfSpecification)
    path.addPolygon(QPolygonF({{50, 6}, {98, 92}, {2, 92}}));
  else if (*signal == Ne107::FunctionCheck)
    path.addPolygon(QPolygonF({{2, 8}, {98, 8}, {50, 96}}));
  else if (*signal == Ne107::Maintenance)
    path.addPolygon(QPolygonF({{50, 2}, {98, 50}, {50, 98}, {2, 50}}));
  else
    path.addEllipse(QRectF(4, 4, 92, 92));
  path.closeSubpath();
  return path;
}

void paintMark(QPainter& painter, DeviceSignal signal) {
  if (!signal) return painter.drawLine(32, 50, 68, 50);
  switch (*signal) {
    case Ne107::Failure:
      painter.drawLine(32, 32, 68, 68);
      painter.drawLine(68, 32, 32, 68);
      break;
    case Ne107::FunctionCheck:
      painter.drawLine(50, 28, 50, 46);
      painter.drawPoint(50, 64);
      break;
    case Ne107::OutOfSpecification:
      painter.drawLine(50, 40, 50, 62);
      painter.drawPoint(50, 79);
      break;
    case Ne107::Maintenance:
      painter.drawLine(34, 50, 66, 50);
      painter.drawLine(50, 34, 50, 66);
      break;
    case Ne107::Good: painter.drawPolyline(QPolygonF({{29, 52}, {44, 67}, {71, 35}})); break;
  }
}

}  // namespace

QString signalLetter(DeviceSignal signal) { return signal && *signal != Ne107::Good ? QString(QLatin1Char(letterOf(*signal))) : QString(); }

QString signalWord(DeviceSignal signal, const Texts& texts) { return signal ? texts(std::string(keyOf(*signal))) : texts.say("Not known"); }

QPixmap signalSymbol(DeviceSignal signal, int size, double pixelRatio) {
  const Look look = lookOf(signal);
  QPixmap pixmap(static_cast<int>(std::ceil(size * pixelRatio)), static_cast<int>(std::ceil(size * pixelRatio)));
  pixmap.setDevicePixelRatio(pixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 100.0, size / 100.0);
  painter.fillPath(outline(signal), QColor(look.fill));
  painter.setPen(QPen(QColor(look.ink), 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  paintMark(painter, signal);
  return pixmap;
}

}  // namespace ostrand
