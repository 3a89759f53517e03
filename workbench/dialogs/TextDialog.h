#pragma once

#include <QString>

class QWidget;

namespace ostrand {

// A longer text to be read, scrolled and copied.
struct TextDialog {
  static void show(QWidget& window, const QString& title, const QString& note, const QString& text);
};

}  // namespace ostrand
