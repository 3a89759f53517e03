#include "workbench/render/ThemeStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace ostrand {

namespace {

constexpr double kMark = 18;

}  // namespace

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
  const bool round = element == PE_IndicatorRadioButton;
  const bool mark = round || element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
  if (!mark && element != PE_FrameFocusRect) return QProxyStyle::drawPrimitive(element, option, painter, widget);

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (!mark) {
    painter->setPen(QPen(mTheme.accent, mTheme.px(2)));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), mTheme.px(4), mTheme.px(4));
    painter->restore();
    return;
  }
  const bool on = option->state & State_On;
  const bool enabled = option->state & State_Enabled;
  const double side = std::min(option->rect.width(), option->rect.height()) - 1.5;
  const QRectF box(option->rect.center().x() + 0.5 - side / 2, option->rect.center().y() + 0.5 - side / 2, side, side);
  const QColor full = enabled ? mTheme.accent : mTheme.disabledText;
  painter->setPen(QPen(on ? full : enabled ? mTheme.outline : mTheme.line, mTheme.scale * 1.5));
  painter->setBrush(on ? full : enabled ? mTheme.field : mTheme.fieldDisabled);
  const double radius = round ? side / 2 : side / 5;
  painter->drawRoundedRect(box, radius, radius);
  if (on && round) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(enabled ? mTheme.accentText : mTheme.surface);
    painter->drawEllipse(box.center(), side / 5, side / 5);
  } else if (on) {
    const auto at = [&](double x, double y) { return QPointF(box.left() + x * side, box.top() + y * side); };
    painter->setPen(QPen(enabled ? mTheme.accentText : mTheme.surface, mTheme.scale * 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)}));
  }
  painter->restore();
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: return mTheme.px(kMark);
    default: return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  // A list below its field, not over it.
  if (hint == SH_ComboBox_Popup) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace ostrand
