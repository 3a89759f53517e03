#pragma once

#include <QString>
#include <QWidget>
#include <optional>

#include "workbench/render/Theme.h"
#include "workbench/render/Words.h"

class QPainter;

namespace ostrand {

class EditControl;

// What there is to say of a value beside the value: one of the first eight always, one of the last two with it if it
// applies. Waiting is a value that the device is still to get, beside the one on the screen; accepted is one on the screen that
// it has not got. Held back is an edit that does not go with the others but by a button of its own.
enum class ValueState { NotRead, Read, ReadFailed, Edited, Wrong, Corrected, Waiting, Accepted, ReadOnly, HeldBack };

struct ValueStates {
  ValueState value = ValueState::NotRead;
  std::optional<ValueState> access;
  friend bool operator==(const ValueStates&, const ValueStates&) = default;
};

// `kept`: what the data set keeps for the device, Waiting or Accepted; it is shown where nothing worse is.
ValueStates statesOf(const EditControl& edit, std::optional<ValueState> kept = std::nullopt);
QString word(ValueState state, const std::string& language);
QColor stateColor(ValueState state, const Theme& theme);
// Each state has a shape of its own, so that it can be told without its colour.
void paintState(QPainter& painter, const QRectF& box, ValueState state, const Theme& theme);

// The symbols beside a value.
class StateSymbol : public QWidget {
 public:
  StateSymbol(const Theme& theme, QWidget* parent);

  void show(const ValueStates& states);
  const ValueStates& states() const { return mStates; }
  void restyle(const Theme& theme);
  // Room for the padlock is kept only where a value cannot be written.
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Theme mTheme;
  ValueStates mStates;
};

}  // namespace ostrand
