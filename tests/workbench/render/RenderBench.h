#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/TestView.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand::test {

// The desktop's tab and shift keys as they are held in the events that are sent.
class HeldKeys : public QObject {
 public:
  explicit HeldKeys(VirtualDesktop& desktop) : mDesktop(desktop) { qApp->installEventFilter(this); }
  ~HeldKeys() override { qApp->removeEventFilter(this); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    const bool down = event->type() == QEvent::KeyPress;
    if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
      mDesktop.tabDown = down;
      mDesktop.shiftDown = down && (key.key() == Qt::Key_Backtab || key.modifiers() & Qt::ShiftModifier);
    }
    return false;
  }

 private:
  VirtualDesktop& mDesktop;
};

// A panel on the screen with what it tells. Declared before the views that it shows.
class PanelBench : public testing::Test {
 protected:
  PanelBench() {
    panel.onRefused = [this](const RuntimeError& error) { refused.push_back(error.description()); };
    panel.onUnhandled = [this](const RuntimeError& error) { unhandled.push_back(error.description()); };
    panel.onTabOut = [this](bool forward) { tabbedOut.push_back(forward); };
    use(Theme::make(Theme::Kind::Light));
    panel.resize(1000, 640);
    panel.show();
    panel.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
  }
  ~PanelBench() override {
    panel.setView(nullptr);
    settle();
  }
  void use(const Theme& theme) {
    theme.apply(*qApp);
    panel.setTheme(theme);
  }
  // What was scheduled is painted.
  static void settle() {
    for (int turn = 0; turn < 4; ++turn) QApplication::processEvents();
  }
  template <class W = QWidget>
  W* widget(const Control& control) const {
    return dynamic_cast<W*>(panel.widgetOf(control));
  }
  template <class W = QWidget>
  W* widget(const std::string& name) const {
    for (Control* control : panel.shownControls())
      if (control->name() == name) return widget<W>(*control);
    return nullptr;
  }
  std::string focusedControl() const {
    for (Control* control : panel.shownControls())
      if (panel.widgetOf(*control) && panel.widgetOf(*control) == QApplication::focusWidget()) return control->name();
    return {};
  }

  VirtualDesktop desktop;
  HeldKeys keys{desktop};
  ViewPanel panel;
  std::vector<std::string> refused;
  std::vector<std::string> unhandled;
  std::vector<bool> tabbedOut;
};

}  // namespace ostrand::test
