#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

#include "platform/controls/Color.h"

class QApplication;

namespace ostrand {

// How everything looks: the one home of colours, fonts and distances. Colours are by role; every text colour stands out from
// what it is painted on by at least 4.5 to 1, in the light theme and in the dark one.
struct Theme {
  enum class Kind { Light, Dark };
  // `scale` enlarges text and distances together: 1, 1.5, 2.
  static Theme make(Kind kind, double scale = 1.0);

  Kind kind;
  double scale;

  // What things stand on.
  QColor window;         // around the panels
  QColor surface;        // a panel
  QColor field;          // where a value can be edited
  QColor fieldDisabled;  // where it cannot
  QColor raised;         // plain buttons, heads of tables
  QColor selection;      // a chosen row
  QColor line;           // hairlines between things
  QColor outline;        // the edge of a field
  // Text, on any of the above.
  QColor text;
  QColor secondaryText;  // labels' companions: units, stamps, notes
  QColor disabledText;
  // The primary button and what has the focus.
  QColor accent;
  QColor accentHover;
  QColor accentText;  // on accent
  // States of values and of devices: marks, borders, and text on window, surface and field.
  QColor good;
  QColor error;
  QColor edited;
  QColor corrected;
  QColor caution;  // held back, warnings
  QColor neutral;

  // A model's colour: its role in this theme; the value itself for Role::Given.
  QColor color(const Color& color) const;
  // The same for what is drawn on a surface: it stands out from it by at least 3 to 1, darker or lighter if need be.
  QColor drawn(const Color& color) const;

  enum class Text { Body, Title, Small, Strong };
  QFont font(Text use = Text::Body) const;
  // A distance in pixels, given at scale 1.
  int px(double distance) const;

  QPalette palette() const;
  // Widgets choose their look by the dynamic property "role": title, stamp, unit, note, value, primary, danger, banner ...
  QString styleSheet() const;
  // Style, palette, font and style sheet of the whole program.
  void apply(QApplication& application) const;

  // From 1 (the same) to 21 (black and white).
  static double contrast(const QColor& one, const QColor& other);
};

}  // namespace ostrand
