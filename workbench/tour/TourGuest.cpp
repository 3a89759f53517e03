#include "workbench/tour/TourGuest.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "platform/base/RuntimeError.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

void TourGuest::press(QWidget& widget, int key, const QString& text) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text), up(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QApplication::sendEvent(&widget, &down);
  QApplication::sendEvent(&widget, &up);
}

Control& TourGuest::find(std::string_view control) const {
  for (Control* const each : mWindow.panel().shownControls())
    if (each->name() == control) return *each;
  throwNothingThere(std::string(control).c_str());
}

QWidget& TourGuest::widget(std::string_view control) const {
  mWindow.panel().refresh();
  QWidget* const widget = mWindow.panel().widgetOf(find(control));
  if (!widget || !widget->isEnabled()) throwNothingThere((std::string(control) + " that can be used").c_str());
  widget->setFocus();
  return *widget;
}

void TourGuest::click(std::string_view control) { press(widget(control), Qt::Key_Space); }

void TourGuest::type(std::string_view control, const std::string& text) {
  QWidget& field = widget(control);
  if (auto* const line = qobject_cast<QLineEdit*>(&field)) line->selectAll();
  for (const QChar character : qt(text)) press(field, 0, character);
  press(field, Qt::Key_Return);
}

void TourGuest::choose(std::string_view control, const std::string& key) {
  auto* const box = qobject_cast<QComboBox*>(&widget(control));
  const int wanted = box ? box->findData(qt(key)) : -1;
  if (wanted < 0) throwNothingThere(("a choice \"" + key + "\"").c_str());
  press(*box, Qt::Key_Home);
  for (int i = 0; i < wanted; ++i) press(*box, Qt::Key_Down);
}

std::string TourGuest::read(std::string_view control) const {
  const auto& edit = dynamic_cast<const EditControl&>(find(control));
  const std::string unit = mWindow.panel().unitText(edit.displayUnit()).toStdString();
  return unit.empty() ? edit.displayText() : edit.displayText() + " " + unit;
}

}  // namespace ostrand
