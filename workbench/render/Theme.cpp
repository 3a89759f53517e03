#include "workbench/render/Theme.h"

#include <QApplication>
#include <cmath>

#include "workbench/render/ThemeStyle.h"

namespace ostrand {

namespace {

constexpr double kBodyPoints = 12.0;

double luminance(const QColor& color) {
  const auto linear = [](double channel) { return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

}  // namespace

// clang-format off
Theme Theme::make(Kind kind, double scale) {
  Theme theme;
  theme.kind = kind;
  theme.scale = scale;
  if (kind == Kind::Light) {
    theme.window        = "#EEF1F4";
    theme.surface       = "#FFFFFF";
    theme.field         = "#FFFFFF";
    theme.fieldDisabled = "#F1F3F5";
    theme.raised        = "#F4F6F8";
    theme.selection     = "#DCEBFA";
    theme.line          = "#DEE3E8";
    theme.outline       = "#8996A3";
    theme.text          = "#18222B";
    theme.secondaryText = "#4A5865";
    theme.disabledText  = "#5C6873";
    theme.accent        = "#0B62B8";
    theme.accentHover   = "#084F96";
    theme.accentText    = "#FFFFFF";
    theme.good          = "#17703F";
    theme.error         = "#B3261E";
    theme.edited        = "#0A58A8";
    theme.corrected     = "#6B3FA0";
    theme.caution       = "#7F5200";
    theme.neutral       = "#55616D";
  } else {
    theme.window        = "#10151A";
    theme.surface       = "#182027";
    theme.field         = "#212B34";
    theme.fieldDisabled = "#1C252D";
    theme.raised        = "#26313B";
    theme.selection     = "#1D3B57";
    theme.line          = "#2C3843";
    theme.outline       = "#6B7986";
    theme.text          = "#E8EDF2";
    theme.secondaryText = "#A9B5C0";
    theme.disabledText  = "#9AA6B1";
    theme.accent        = "#5BAEFF";
    theme.accentHover   = "#85C3FF";
    theme.accentText    = "#08182A";
    theme.good          = "#5FD394";
    theme.error         = "#FF9A92";
    theme.edited        = "#86C5FF";
    theme.corrected     = "#CBA9FF";
    theme.caution       = "#F2C069";
    theme.neutral       = "#A9B5C0";
  }
  return theme;
}
// clang-format on

QColor Theme::color(const Color& color) const {
  switch (color.role) {
    case Color::Role::Window: return surface;
    case Color::Role::Text: return text;
    case Color::Role::DisabledText: return disabledText;
    case Color::Role::ErrorText: return error;
    case Color::Role::EditedText: return edited;
    case Color::Role::Given: break;
  }
  return QColor(static_cast<QRgb>(color.rgb));
}

QColor Theme::drawn(const Color& color) const {
  QColor drawn = this->color(color);
  constexpr double kStandsOut = 3.0;
  // In steps of a tenth towards the text, which does.
  for (int step = 1; step <= 10 && contrast(drawn, surface) < kStandsOut; ++step) {
    const auto between = [&](float from, float to) { return from + (to - from) * 0.1F * static_cast<float>(step); };
    const QColor from = this->color(color);
    drawn = QColor::fromRgbF(between(from.redF(), text.redF()), between(from.greenF(), text.greenF()), between(from.blueF(), text.blueF()));
  }
  return drawn;
}

QFont Theme::font(Text use) const {
  QFont font;
  font.setPointSizeF(kBodyPoints * scale);
  font.setWeight(QFont::Normal);
  if (use == Text::Title) {
    font.setPointSizeF(kBodyPoints * 1.5 * scale);
    font.setWeight(QFont::DemiBold);
  } else if (use == Text::Small) {
    font.setPointSizeF(kBodyPoints * 0.9 * scale);
  } else if (use == Text::Strong) {
    font.setWeight(QFont::DemiBold);
  }
  return font;
}

int Theme::px(double distance) const { return static_cast<int>(std::lround(distance * scale)); }

QPalette Theme::palette() const {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, const QColor& normal, const QColor& disabled) {
    palette.setColor(QPalette::Active, role, normal);
    palette.setColor(QPalette::Inactive, role, normal);
    palette.setColor(QPalette::Disabled, role, disabled);
  };
  set(QPalette::Window, window, window);
  set(QPalette::WindowText, text, disabledText);
  set(QPalette::Base, field, fieldDisabled);
  set(QPalette::AlternateBase, raised, fieldDisabled);
  set(QPalette::Text, text, disabledText);
  set(QPalette::PlaceholderText, secondaryText, disabledText);
  set(QPalette::Button, raised, fieldDisabled);
  set(QPalette::ButtonText, text, disabledText);
  set(QPalette::BrightText, error, error);
  set(QPalette::Highlight, accent, outline);
  set(QPalette::HighlightedText, accentText, surface);
  set(QPalette::Link, accent, disabledText);
  set(QPalette::ToolTipBase, surface, surface);
  set(QPalette::ToolTipText, text, text);
  set(QPalette::Light, surface, surface);
  set(QPalette::Midlight, line, line);
  set(QPalette::Mid, outline, outline);
  set(QPalette::Dark, outline, outline);
  set(QPalette::Shadow, line, line);
  return palette;
}

QString Theme::styleSheet() const {
  QString sheet = QStringLiteral(R"(
QWidget { color: @text; }
QToolTip { color: @text; background: @surface; border: 1px solid @outline; padding: @6px; }
QScrollArea { border: none; background: @surface; }
QLabel { background: transparent; }
QLabel:disabled, QLabel[role="disabled"] { color: @disabledText; }
QLabel[role="unit"], QLabel[role="stamp"], QLabel[role="note"] { color: @secondaryText; }
QLabel[role="error"], QLabel[role="unit"][state="wrong"] { color: @error; }

QLineEdit, QComboBox {
  color: @text; background: @field; border: 1px solid @outline; border-radius: @4px; padding: @2px @8px;
  selection-background-color: @accent; selection-color: @accentText;
}
QComboBox { padding-left: @10px; padding-right: @28px; }
QComboBox::drop-down { border: none; width: 0; }
QComboBox::down-arrow { image: none; }
QComboBox QAbstractItemView {
  color: @text; background: @surface; border: 1px solid @outline; outline: none; padding: @4px;
  selection-background-color: @selection; selection-color: @text;
}
QComboBox QAbstractItemView::item { min-height: @32px; }
QLineEdit:hover, QComboBox:hover { border-color: @secondaryText; }
QLineEdit[state="edited"], QComboBox[state="edited"] { color: @edited; border-color: @edited; }
QLineEdit[state="corrected"], QComboBox[state="corrected"] { color: @corrected; border-color: @corrected; }
QLineEdit[state="wrong"], QComboBox[state="wrong"] { color: @error; border-color: @error; }
QLineEdit:focus, QComboBox:focus, QComboBox:on { border: 2px solid @accent; padding: @1px @7px; }
QComboBox:focus, QComboBox:on { padding-left: @9px; padding-right: @27px; }
QLineEdit[state="wrong"]:focus, QComboBox[state="wrong"]:focus { border-color: @error; }
QLineEdit:disabled, QComboBox:disabled { color: @disabledText; background: @fieldDisabled; border-color: @line; }
QLineEdit[readOnly="true"], QComboBox[fixed="true"] { color: @text; background: @fieldDisabled; border-color: @line; }
QLabel[role="value"] { color: @text; background: @fieldDisabled; border: 1px solid @line; border-radius: @4px; padding: @2px @8px; }

QPushButton {
  color: @text; background: @raised; border: 1px solid @outline; border-radius: @4px; padding: @4px @16px; outline: none;
}
QPushButton:hover { background: @selection; }
QPushButton:pressed { background: @line; }
QPushButton:focus { border: 2px solid @accent; padding: @3px @15px; }
QPushButton[role="primary"] { color: @accentText; background: @accent; border-color: @accent; }
QPushButton[role="primary"]:hover { background: @accentHover; border-color: @accentHover; }
QPushButton[role="primary"]:pressed { background: @accent; }
QPushButton[role="primary"]:focus { border: 2px solid @text; }
QPushButton:disabled, QPushButton[role="primary"]:disabled { color: @disabledText; background: @fieldDisabled; border: 1px solid @line; padding: @4px @16px; }

QCheckBox, QRadioButton { background: transparent; spacing: @10px; padding: @2px; }
QCheckBox:disabled, QRadioButton:disabled { color: @disabledText; }

QSlider::groove:horizontal { background: @outline; height: @4px; border-radius: @2px; }
QSlider::sub-page:horizontal { background: @accent; height: @4px; border-radius: @2px; }
QSlider::handle:horizontal { background: @accent; border: 2px solid @accent; width: @14px; margin: -@7px 0; border-radius: @9px; }
QSlider::handle:horizontal:focus { border-color: @text; }
QSlider::handle:horizontal:disabled, QSlider::sub-page:horizontal:disabled { background: @outline; border-color: @outline; }

QAbstractItemView { color: @text; background: @surface; border: 1px solid @line; border-radius: @4px; outline: none; gridline-color: @line;
  selection-background-color: @selection; selection-color: @text; }
QAbstractItemView:focus { border-color: @accent; }
QAbstractItemView::item:selected { background: @selection; color: @text; }
QHeaderView { background: @raised; border: none; }
QHeaderView::section { color: @secondaryText; background: @raised; border: none; border-bottom: 1px solid @line; padding: @6px @13px; }
QTableCornerButton::section { background: @raised; border: none; }

QScrollBar:vertical { background: transparent; width: @12px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: @12px; margin: 0; }
QScrollBar::handle { background: @outline; border-radius: @4px; margin: @2px; }
QScrollBar::handle:vertical { min-height: @32px; }
QScrollBar::handle:horizontal { min-width: @32px; }
QScrollBar::handle:hover { background: @secondaryText; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QSplitter::handle { background: @line; }
)");
  // A name that begins another one comes after it.
  const std::pair<const char*, QColor> colors[] = {
      {"@accentHover", accentHover},
      {"@accentText", accentText},
      {"@accent", accent},
      {"@fieldDisabled", fieldDisabled},
      {"@field", field},
      {"@secondaryText", secondaryText},
      {"@disabledText", disabledText},
      {"@selection", selection},
      {"@surface", surface},
      {"@raised", raised},
      {"@outline", outline},
      {"@corrected", corrected},
      {"@edited", edited},
      {"@error", error},
      {"@text", text},
      {"@line", line},
  };
  for (const auto& [name, value] : colors) sheet.replace(QLatin1String(name), value.name());
  // What is left are distances: "@12px".
  QString scaled;
  scaled.reserve(sheet.size());
  for (qsizetype i = 0; i < sheet.size(); ++i) {
    if (sheet[i] != QLatin1Char('@')) {
      scaled += sheet[i];
      continue;
    }
    int distance = 0;
    while (i + 1 < sheet.size() && sheet[i + 1].isDigit()) distance = distance * 10 + sheet[++i].digitValue();
    scaled += QString::number(px(distance));
  }
  return scaled;
}

void Theme::apply(QApplication& application) const {
  // Every widget there is would be polished anew.
  if (application.styleSheet() == styleSheet()) return;
  application.setStyle(new ThemeStyle(*this));
  application.setPalette(palette());
  application.setFont(font());
  application.setStyleSheet(styleSheet());
}

double Theme::contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one), b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace ostrand
