#pragma once

#include <QProxyStyle>

#include "workbench/render/Theme.h"

namespace ostrand {

// The marks that a style sheet cannot paint without pictures: ticks, dots, and the ring around what has the focus.
class ThemeStyle : public QProxyStyle {
 public:
  explicit ThemeStyle(const Theme& theme) : QProxyStyle(QStringLiteral("Fusion")), mTheme(theme) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override;

 private:
  Theme mTheme;
};

}  // namespace ostrand
