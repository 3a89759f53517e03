#include "workbench/render/LineEditRenderer.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/MomentEdit.h"
#include "workbench/render/FormPage.h"

namespace ostrand {

namespace {

constexpr int kLeastCharacters = 12;
constexpr int kLeastDigits = 7;
constexpr int kMostCharacters = 48;  // what is longer can be scrolled in its field

}  // namespace

LineEditRenderer::LineEditRenderer(FormPage& page, EditControl& edit) : EditRenderer(page, edit), mField(new QLineEdit(&page)) {
  // Only what the user types counts as typing, not what the model sets.
  QObject::connect(mField, &QLineEdit::textEdited, mField, [this] { mTyping = true; });
}

std::vector<QWidget*> LineEditRenderer::widgets() const { return widgetsWith(mField); }

QWidget* LineEditRenderer::focusWidget() const { return mField; }

void LineEditRenderer::restyle() {
  EditRenderer::restyle();
  useFont(*mField, theme().font());
}

void LineEditRenderer::sync() {
  EditRenderer::sync();
  const QString text = toQt(edit().displayText());
  if (!mTyping && mField->text() != text) {
    const bool all = mField->hasFocus() && mField->selectedText() == mField->text();
    mField->setText(text);
    if (all)
      mField->selectAll();
    else if (!mField->hasFocus())
      mField->setCursorPosition(0);
  }
  const Qt::Alignment side = isMeasured() ? Qt::AlignRight : Qt::AlignLeft;
  if (mField->alignment() != (side | Qt::AlignVCenter)) mField->setAlignment(side | Qt::AlignVCenter);
  setEnabled(*mField, edit().Enabled());
  const bool readOnly = edit().ReadOnly();
  if (mField->isReadOnly() != readOnly) mField->setReadOnly(readOnly);
  setLook(*mField, "readOnly", readOnly ? QStringLiteral("true") : QStringLiteral("false"));
  setLook(*mField, "state", look());
}

// A measured value stands with its last digit before the unit; a serial number reads like a text.
bool LineEditRenderer::isMeasured() const {
  const ParameterInfo& info = edit().info();
  return info.isFloat() || (info.isInteger() && info.unit != "noUnit");
}

int LineEditRenderer::fieldWidth() const {
  const QFontMetrics metrics(mField->font());
  const int least = metrics.horizontalAdvance(QLatin1Char('0')) * (isMeasured() ? kLeastDigits : kLeastCharacters);
  const int most = metrics.horizontalAdvance(QLatin1Char('0')) * kMostCharacters;
  // Padding and frame on both sides, and the cursor.
  return std::clamp(metrics.horizontalAdvance(toQt(edit().displayText())), least, most) + theme().px(16) + 8;
}

bool LineEditRenderer::key(QKeyEvent& event) {
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
    commit();
    mField->selectAll();
    return true;
  }
  // First what is typed goes back step by step, then the edit.
  if (event.matches(QKeySequence::Undo) && mTyping && mField->isUndoAvailable()) {
    mField->undo();
    if (mField->text() == toQt(edit().displayText())) mTyping = false;
    return true;
  }
  return EditRenderer::key(event);
}

void LineEditRenderer::commit() {
  if (!mTyping) return;
  mTyping = false;
  const std::string text = fromQt(mField->text());
  act(
      [&] {
        if (auto* textEdit = dynamic_cast<CtrTextEdit*>(&edit()))
          textEdit->type(text);
        else if (auto* moment = dynamic_cast<MomentEdit*>(&edit()))
          moment->type(text);
      },
      {"type", inQuotes(text)});
}

void LineEditRenderer::dropTyping() { mTyping = false; }

}  // namespace ostrand
