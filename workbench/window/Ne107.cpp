#include "workbench/window/Ne107.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace ostrand::ne107 {

namespace {

struct Meaning {
  std::string_view tail;
  Ne107 signal;
};

// By the tail of the name; the first that fits decides.
constexpr Meaning kMeanings[] = {
    {"LoopTestActive", Ne107::FunctionCheck},
    {"SamplingActive", Ne107::FunctionCheck},
    {"SimulationActive", Ne107::FunctionCheck},
    {"FixedCurrentActive", Ne107::FunctionCheck},
    {"SupplyVoltageFailure", Ne107::Maintenance},
    {"ElectronicsTemperatureOutOfLimits", Ne107::Maintenance},
    {"FailSafeActive", Ne107::OutOfSpecification},
    {"OutOfLimits", Ne107::OutOfSpecification},
    {"Failure", Ne107::Failure},
};

struct Look {
  const char* letter;
  const char* word;
  QRgb fill;
  QRgb ink;
};

const Look& lookOf(Ne107 state) {
  static constexpr Look kLooks[] = {
      {"F", "Failure", 0xffc62828, 0xffffffff},       {"C", "Function check", 0xffe07b00, 0xff1a1200}, {"S", "Out of specification", 0xfff2c200, 0xff1f1a00},
      {"M", "Maintenance required", 0xff1f6fc4, 0xffffffff}, {"", "Good", 0xff2e7d32, 0xffffffff},           {"", "Not known", 0xff7a828c, 0xffffffff},
  };
  return kLooks[static_cast<std::size_t>(state)];
}

QPainterPath outline(Ne107 state) {
  QPainterPath path;
  switch (state) {
    case Ne107::OutOfSpecification:
      path.addPolygon(QPolygonF({{50, 6}, {98, 92}, {2, 92}}));
      break;
    case Ne107::FunctionCheck:
      path.addPolygon(QPolygonF({{2, 8}, {98, 8}, {50, 96}}));
      break;
    case Ne107::Maintenance:
      path.addPolygon(QPolygonF({{50, 2}, {98, 50}, {50, 98}, {2, 50}}));
      break;
    case Ne107::Unknown:
      path.addRoundedRect(QRectF(8, 8, 84, 84), 14, 14);
      break;
    default:
      path.addEllipse(QRectF(4, 4, 92, 92));
  }
  path.closeSubpath();
  return path;
}

}  // namespace

Ne107 signalOf(std::string_view parameter) {
  if (!parameter.starts_with("status")) return Ne107::Good;
  for (const Meaning& meaning : kMeanings)
    if (parameter.ends_with(meaning.tail)) return meaning.signal;
  return Ne107::Good;
}

const std::vector<Ne107>& usualPriorities() {
  static const std::vector<Ne107> priorities{Ne107::Failure, Ne107::FunctionCheck, Ne107::OutOfSpecification, Ne107::Maintenance};
  return priorities;
}

Ne107 mostImportant(const std::vector<Ne107>& inForce, const std::vector<Ne107>& priorities) {
  for (const Ne107 each : priorities)
    if (std::find(inForce.begin(), inForce.end(), each) != inForce.end()) return each;
  return Ne107::Good;
}

const char* letter(Ne107 state) { return lookOf(state).letter; }

const char* word(Ne107 state) { return lookOf(state).word; }

QPixmap symbol(Ne107 state, int size, double pixelRatio) {
  const Look& look = lookOf(state);
  QPixmap pixmap(static_cast<int>(std::ceil(size * pixelRatio)), static_cast<int>(std::ceil(size * pixelRatio)));
  pixmap.setDevicePixelRatio(pixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 100.0, size / 100.0);
  painter.fillPath(outline(state), QColor(look.fill));
  painter.setPen(QPen(QColor(look.ink), 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  switch (state) {
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
    case Ne107::Good:
      painter.drawPolyline(QPolygonF({{29, 52}, {44, 67}, {71, 35}}));
      break;
    case Ne107::Unknown:
      painter.drawLine(32, 50, 68, 50);
      break;
  }
  return pixmap;
}

}  // namespace ostrand::ne107
