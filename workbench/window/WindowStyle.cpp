#include "workbench/window/WindowStyle.h"

#include <utility>

namespace ostrand {

QString windowStyle(const Theme& theme) {
  QString sheet = QStringLiteral(R"(
QMainWindow, QDialog, QMessageBox { background: @window; }
QLabel#qt_msgbox_label { font-weight: 600; min-width: @300px; padding: @8px @8px 0 0; }
QLabel#qt_msgbox_informativelabel { min-width: @300px; padding-bottom: @8px; }
QDialog QTreeView::item { padding: @4px 0; }
QMenuBar { background: @surface; border-bottom: 1px solid @line; padding: 2px 8px; }
QMenuBar::item { padding: 5px 10px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @selection; }
QMenu { background: @surface; border: 1px solid @outline; padding: 6px 0; }
QMenu::item { padding: 6px 28px 6px 32px; }
QMenu::item:selected { background: @selection; color: @text; }
QMenu::item:disabled { color: @disabledText; }
QMenu::separator { height: 1px; background: @line; margin: 6px 0; }
QToolBar::separator { background: @line; width: 1px; margin: 6px 8px; }
QToolBar { background: @surface; border: none; border-bottom: 1px solid @line; spacing: 4px; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 5px 10px; }
QToolButton:hover { background: @selection; }
QToolButton:pressed, QToolButton:checked { background: @raised; border-color: @outline; }
QToolButton:focus { border-color: @accent; }
QToolButton:disabled { color: @disabledText; }
QToolButton::menu-indicator { image: none; }
QToolButton#qt_toolbar_ext_button { padding: 0; }
#plant { background: @surface; border: none; border-radius: 0; padding: 6px 0; }
#plant { show-decoration-selected: 1; }
#plant::item { padding: 4px 6px; border: none; }
#plant::item:selected { background: @selection; color: @text; }
#plant::item:disabled { color: @disabledText; }
#header { background: @surface; border-bottom: 1px solid @line; }
#conversation { background: @surface; }
#conversation QTreeView { border: none; border-top: 1px solid @line; border-radius: 0; }
#conversation QTreeView::item { padding: 1px 4px; }
#conversation QHeaderView::section { padding: 3px 4px; }
#conversation QLineEdit { padding: 1px 8px; }
#statusLine { background: @raised; border-top: 1px solid @line; }
#statusLine QPushButton { padding: 1px 10px; }
QProgressBar { background: @line; border: none; border-radius: 4px; }
QProgressBar::chunk { background: @accent; border-radius: 4px; }
QLabel[role="heading"] { font-weight: 600; }
*[role="banner"] { background: @bannerFill; }
*[role="banner"] QLabel { color: @bannerText; font-weight: 600; }
QSplitter::handle { background: @line; }
QTableView::item { padding: 2px 8px; }
QDialog QTableView QHeaderView::section { padding: 6px 3px; }
QDialog QTreeView QHeaderView::section { padding: 6px 4px; }
QPlainTextEdit, QListWidget { background: @field; border: 1px solid @outline; border-radius: 4px; }
)");
  const QColor bannerFill = theme.kind == Theme::Kind::Light ? QColor(0xffd98a) : QColor(0x6b4700);
  const QColor bannerText = theme.kind == Theme::Kind::Light ? QColor(0x2b1c00) : QColor(0xfff2d9);
  // A name that begins another one comes after it.
  const std::pair<const char*, QColor> colors[] = {
      {"@window", theme.window},   {"@surface", theme.surface}, {"@selection", theme.selection}, {"@line", theme.line},
      {"@outline", theme.outline}, {"@raised", theme.raised},   {"@accent", theme.accent},       {"@disabledText", theme.disabledText},
      {"@field", theme.field},     {"@bannerFill", bannerFill}, {"@bannerText", bannerText},     {"@text", theme.text},
  };
  for (const auto& [name, value] : colors) sheet.replace(QLatin1String(name), value.name());
  // What is left are distances: "@12px".
  for (const int distance : {300, 8, 4}) sheet.replace(QStringLiteral("@%1px").arg(distance), QStringLiteral("%1px").arg(theme.px(distance)));
  return sheet;
}

}  // namespace ostrand
