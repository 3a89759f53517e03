#pragma once

#include <string>
#include <string_view>

#include "workbench/window/MainWindow.h"

namespace ostrand {

// The hands of the tour, where nobody sits before the window: uses the controls of the view in front as a user would, through
// their widgets. RuntimeError 91 for a control that is not on the screen.
class TourGuest {
 public:
  explicit TourGuest(MainWindow& window) : mWindow(window) {}

  void click(std::string_view control);
  // In place of what the field holds; applied by Enter.
  void type(std::string_view control, const std::string& text);
  // With the arrow keys.
  void choose(std::string_view control, const std::string& key);
  // What the control shows, with its unit.
  std::string read(std::string_view control) const;

 private:
  Control& find(std::string_view control) const;
  QWidget& widget(std::string_view control) const;
  static void press(QWidget& widget, int key, const QString& text = {});

  MainWindow& mWindow;
};

}  // namespace ostrand
