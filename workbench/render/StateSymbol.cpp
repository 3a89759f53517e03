#include "workbench/render/StateSymbol.h"

#include <QPainter>
#include <QPainterPath>

#include "platform/controls/EditControl.h"

namespace ostrand {

namespace {

constexpr double kSize = 18;
constexpr double kGap = 4;

}  // namespace

ValueStates statesOf(const EditControl& edit, std::optional<ValueState> kept) {
  ValueStates states;
  // What the device lets nobody write has only been emptied by its view, until it is read again.
  const bool emptied = edit.info().readOnly && edit.Modified();
  const bool edited = edit.Modified() && !emptied;
  const bool wrong = !edit.Correct();
  if (edited && wrong)
    states.value = ValueState::Wrong;
  else if (edited)
    states.value = edit.editWord() == EditWord::kCorrected ? ValueState::Corrected : ValueState::Edited;
  else if (!edit.Error().empty() || edit.syncWord() == SyncWord::kSyncError)
    states.value = ValueState::ReadFailed;
  else if (wrong && !edit.Text().empty())
    states.value = ValueState::Wrong;
  else if (kept)
    states.value = *kept;
  else if (edit.syncWord() != SyncWord::kNotRead && !emptied)
    states.value = ValueState::Read;
  if (edit.ReadOnly())
    states.access = ValueState::ReadOnly;
  else if (edited && (edit.KeepLocal() || edit.ExplicitApply()))
    states.access = ValueState::HeldBack;
  return states;
}

QString word(ValueState state, const std::string& language) {
  switch (state) {
    case ValueState::NotRead: return word(PanelWord::NotRead, language);
    case ValueState::Read: return word(PanelWord::Read, language);
    case ValueState::ReadFailed: return word(PanelWord::ReadFailed, language);
    case ValueState::Edited: return word(PanelWord::Edited, language);
    case ValueState::Wrong: return word(PanelWord::Wrong, language);
    case ValueState::Corrected: return word(PanelWord::Corrected, language);
    case ValueState::Waiting: return word(PanelWord::Waiting, language);
    case ValueState::Accepted: return word(PanelWord::Accepted, language);
    case ValueState::ReadOnly: return word(PanelWord::ReadOnly, language);
    case ValueState::HeldBack: return word(PanelWord::HeldBack, language);
  }
  return {};
}

QColor stateColor(ValueState state, const Theme& theme) {
  switch (state) {
    case ValueState::NotRead: return theme.neutral;
    case ValueState::Read: return theme.good;
    case ValueState::ReadFailed: return theme.error;
    case ValueState::Edited: return theme.edited;
    case ValueState::Wrong: return theme.error;
    case ValueState::Corrected: return theme.corrected;
    case ValueState::Waiting: return theme.edited;
    case ValueState::Accepted: return theme.edited;
    case ValueState::ReadOnly: return theme.neutral;
    case ValueState::HeldBack: return theme.caution;
  }
  return theme.neutral;
}

void paintState(QPainter& painter, const QRectF& box, ValueState state, const Theme& theme) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(box.topLeft());
  painter.scale(box.width() / kSize, box.height() / kSize);
  const QColor color = stateColor(state, theme);
  const QColor inside = theme.surface;
  const QPen edge(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  const QPen mark(inside, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  switch (state) {
    case ValueState::NotRead:  // an open ring
      painter.setPen(QPen(color, 1.8, Qt::DotLine, Qt::RoundCap));
      painter.setBrush(Qt::NoBrush);
      painter.drawEllipse(QRectF(3, 3, 12, 12));
      break;
    case ValueState::Read:  // a full circle with a tick
      painter.drawEllipse(QRectF(2, 2, 14, 14));
      painter.setPen(mark);
      painter.drawPolyline(QPolygonF({{5.6, 9.4}, {8.1, 11.8}, {12.6, 6.6}}));
      break;
    case ValueState::ReadFailed:  // a triangle with an exclamation mark
      painter.setPen(edge);
      painter.drawPolygon(QPolygonF({{9, 2.4}, {16.2, 15.2}, {1.8, 15.2}}));
      painter.setPen(mark);
      painter.drawLine(QPointF(9, 7), QPointF(9, 10.4));
      painter.drawPoint(QPointF(9, 13.2));
      break;
    case ValueState::Edited: {  // a pencil
      painter.translate(9, 9);
      painter.rotate(45);
      painter.drawRoundedRect(QRectF(-2.4, -8, 4.8, 3), 1, 1);
      painter.drawRect(QRectF(-2.4, -4.2, 4.8, 7.6));
      painter.drawPolygon(QPolygonF({{-2.4, 4.2}, {2.4, 4.2}, {0, 8.6}}));
      break;
    }
    case ValueState::Wrong: {  // an octagon with a cross
      QPolygonF octagon;
      for (const auto& [x, y] : {std::pair{6.0, 2.0}, {12.0, 2.0}, {16.0, 6.0}, {16.0, 12.0}, {12.0, 16.0}, {6.0, 16.0}, {2.0, 12.0}, {2.0, 6.0}})
        octagon << QPointF(x, y);
      painter.drawPolygon(octagon);
      painter.setPen(mark);
      painter.drawLine(QPointF(6.4, 6.4), QPointF(11.6, 11.6));
      painter.drawLine(QPointF(11.6, 6.4), QPointF(6.4, 11.6));
      break;
    }
    case ValueState::Corrected:  // a diamond with a tick
      painter.drawPolygon(QPolygonF({{9, 1}, {17, 9}, {9, 17}, {1, 9}}));
      painter.setPen(mark);
      painter.drawPolyline(QPolygonF({{6.0, 9.3}, {8.3, 11.4}, {12.0, 6.9}}));
      break;
    case ValueState::Waiting:  // an arrow on its way, in a ring
      painter.setPen(edge);
      painter.setBrush(Qt::NoBrush);
      painter.drawEllipse(QRectF(2, 2, 14, 14));
      painter.drawLine(QPointF(5.5, 9), QPointF(12.2, 9));
      painter.drawPolyline(QPolygonF({{9.6, 6.2}, {12.4, 9}, {9.6, 11.8}}));
      break;
    case ValueState::Accepted:  // a tick in an open ring: nobody has read it
      painter.setPen(edge);
      painter.setBrush(Qt::NoBrush);
      painter.drawEllipse(QRectF(2, 2, 14, 14));
      painter.drawPolyline(QPolygonF({{5.6, 9.4}, {8.1, 11.8}, {12.6, 6.6}}));
      break;
    case ValueState::ReadOnly:  // a padlock
      painter.drawRoundedRect(QRectF(3.5, 8, 11, 8), 1.5, 1.5);
      painter.setPen(edge);
      painter.setBrush(Qt::NoBrush);
      painter.drawArc(QRectF(5.6, 2.6, 6.8, 9), 0, 180 * 16);
      break;
    case ValueState::HeldBack:  // the two bars of a pause in a frame
      painter.setPen(QPen(color, 1.4));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(QRectF(2.5, 2.5, 13, 13), 3, 3);
      painter.setPen(edge);
      painter.drawLine(QPointF(7, 6), QPointF(7, 12));
      painter.drawLine(QPointF(11, 6), QPointF(11, 12));
      break;
  }
  painter.restore();
}

StateSymbol::StateSymbol(const Theme& theme, QWidget* parent) : QWidget(parent), mTheme(theme) {}

void StateSymbol::show(const ValueStates& states) {
  if (states == mStates) return;
  mStates = states;
  update();
}

void StateSymbol::restyle(const Theme& theme) {
  mTheme = theme;
  update();
}

QSize StateSymbol::sizeHint() const { return {mTheme.px(mStates.access == ValueState::ReadOnly ? 2 * kSize + kGap : kSize), mTheme.px(kSize)}; }

void StateSymbol::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const double size = mTheme.px(kSize);
  const double top = (height() - size) / 2;
  // What is held back is an edit, so that one symbol tells both.
  const bool heldBack = mStates.access == ValueState::HeldBack && mStates.value == ValueState::Edited;
  paintState(painter, QRectF(0, top, size, size), heldBack ? ValueState::HeldBack : mStates.value, mTheme);
  if (mStates.access == ValueState::ReadOnly) paintState(painter, QRectF(size + mTheme.px(kGap), top, size, size), ValueState::ReadOnly, mTheme);
}

}  // namespace ostrand
