#pragma once

#include <QRect>
#include <QString>
#include <QWidget>
#include <vector>

#include "platform/controls/Control.h"
#include "workbench/render/Theme.h"
#include "workbench/render/UserInput.h"

class QKeyEvent;
class QLabel;

namespace ostrand {

class FormPage;
class ViewPanel;

QString toQt(const std::string& text);
std::string fromQt(const QString& text);

// The least room that a control's parts need, in pixels. The parts of one column stand below each other: the field, behind it
// its companion (a unit, a note), behind that the state symbols.
struct Extent {
  int field = 0;
  int companion = 0;
  int state = 0;
  int height = 0;
  int tail = 0;  // behind a field without companion and state: may hang over the end of the column
  friend bool operator==(const Extent&, const Extent&) = default;
};

// The rectangles of these parts.
struct Position {
  QRect field;
  QRect companion;
  QRect state;
};

// Shows one control on a page and passes the user's actions on. A base for one class per kind; a control without a display is
// one without a widget.
class ControlRenderer {
 public:
  ControlRenderer(FormPage& page, Control& control) : mPage(page), mControl(control) {}
  virtual ~ControlRenderer() = default;
  ControlRenderer(const ControlRenderer&) = delete;
  ControlRenderer& operator=(const ControlRenderer&) = delete;

  Control& control() const { return mControl; }
  // The widgets, in this order: field, companion, state. The first is what the control is on the screen.
  virtual std::vector<QWidget*> widgets() const { return {}; }
  // What takes the keys; nullptr if nothing does.
  virtual QWidget* focusWidget() const { return nullptr; }

  // Takes fonts and colours from the theme.
  virtual void restyle() {}
  // Brings the widgets up to date and touches none whose value did not change. Visibility and position are the page's affair.
  virtual void sync() {}
  virtual Extent extent() const { return {}; }
  virtual void arrange(const Position& position);
  // What the tooltip tells, as rich text.
  virtual QString explanation() const;

  // A key before the widget has seen it; true if it is used up.
  virtual bool key(QKeyEvent& event);
  // What is typed and not yet told to the model.
  virtual bool hasTyping() const { return false; }
  virtual void commit() {}
  // The renderers of the controls inside, if this one shows a component.
  virtual const FormPage* inside() const { return nullptr; }
  // Whether it takes the whole room that is left, and not only what it needs.
  virtual bool fills() const { return false; }

 protected:
  FormPage& page() const { return mPage; }
  ViewPanel& panel() const;
  const Theme& theme() const;
  // The model's action; then the widgets follow the model, whether it accepted or not.
  bool act(const std::function<void()>& action, const UserInput& input = {});
  // Why the control is disabled, if it is and somebody knows.
  QString reason() const;
  // A property that the style sheet asks for.
  static void setLook(QWidget& widget, const char* property, const QString& value);
  static void setEnabled(QWidget& widget, bool enabled);
  static void useFont(QWidget& widget, const QFont& font);
  // The colour of a text, where it has one of its own.
  void useInk(QWidget& widget, const Color& color) const;
  int lineHeight() const;
  int fieldHeight() const;

 private:
  FormPage& mPage;
  Control& mControl;
};

}  // namespace ostrand
