#include "workbench/render/EditRenderer.h"

#include <QKeyEvent>
#include <QLabel>

#include "platform/controls/Component.h"
#include "platform/controls/CtrTextEdit.h"
#include "workbench/render/FormPage.h"
#include "workbench/render/StateSymbol.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

EditRenderer::EditRenderer(FormPage& page, EditControl& edit)
    : ControlRenderer(page, edit), mEdit(edit), mUnit(new QLabel(&page)), mState(new StateSymbol(panel().theme(), &page)) {
  mUnit->setTextFormat(Qt::PlainText);
  mUnit->setProperty("role", "unit");
}

std::vector<QWidget*> EditRenderer::widgetsWith(QWidget* field) const { return {field, mUnit, mState}; }

void EditRenderer::restyle() {
  useFont(*mUnit, theme().font());
  mState->restyle(theme());
}

void EditRenderer::sync() {
  const QString unit = panel().unitText(mEdit.displayUnit());
  if (mUnit->text() != unit) mUnit->setText(unit);
  const ValueStates states = statesOf(mEdit);
  if (states == mState->states()) return;
  mState->show(states);
  QString told = word(states.value, panel().language());
  if (states.access) told += QStringLiteral(", ") + word(*states.access, panel().language());
  mState->setAccessibleName(told);
  if (QWidget* keys = focusWidget()) keys->setAccessibleDescription(told);
}

Extent EditRenderer::extent() const {
  const int unit = mUnit->text().isEmpty() ? 0 : mUnit->sizeHint().width();
  return {.field = fieldWidth(), .companion = unit, .state = mState->sizeHint().width(), .height = fieldHeight()};
}

QString EditRenderer::look() const {
  switch (mState->states().value) {
    case ValueState::Edited: return QStringLiteral("edited");
    case ValueState::Corrected: return QStringLiteral("corrected");
    case ValueState::Wrong: return QStringLiteral("wrong");
    default: return {};
  }
}

QString EditRenderer::explanation() const {
  const std::string& language = panel().language();
  const ValueStates states = statesOf(mEdit);
  QString told = QStringLiteral("<b>%1</b>").arg(word(states.value, language).toHtmlEscaped());
  const auto line = [&](const QString& text) { told += QStringLiteral("<br>") + text.toHtmlEscaped(); };
  const auto fact = [&](Word name, const QString& text) { line(word(name, language) + QStringLiteral(": ") + text); };
  if (states.access)
    line(word(*states.access, language));
  else if (mEdit.KeepLocal() || mEdit.ExplicitApply())
    line(word(ValueState::HeldBack, language));
  if (const QString why = reason(); !why.isEmpty()) line(why);
  if (!mEdit.Error().empty()) line(panel().text(mEdit.Error()));

  const ParameterInfo& info = mEdit.info();
  if (const auto* text = dynamic_cast<const CtrTextEdit*>(&mEdit)) {
    const QString least = toQt(text->shownLimit(info.min)), most = toQt(text->shownLimit(info.max));
    const QString unit = panel().unitText(mEdit.displayUnit());
    const QString behind = unit.isEmpty() ? QString() : QStringLiteral(" ") + unit;
    if (!least.isEmpty() && !most.isEmpty())
      fact(Word::Limits, least + QStringLiteral(" – ") + most + behind);
    else if (!least.isEmpty())
      fact(Word::Limits, word(Word::AtLeast, language) + QStringLiteral(" ") + least + behind);
    else if (!most.isEmpty())
      fact(Word::Limits, word(Word::AtMost, language) + QStringLiteral(" ") + most + behind);
  }
  if (!mEdit.parameterName().empty()) {
    fact(Word::Parameter, toQt(std::string(mEdit.parameterName())));
    const QString unit = info.unit == "noUnit" ? QString() : QStringLiteral(" ") + toQt(info.unit);
    fact(Word::RawValue, mEdit.stored().empty() ? QStringLiteral("–") : toQt(mEdit.stored()) + unit);
    const Component* const owner = mEdit.owner();
    fact(Word::LastRead, mEdit.lastRead() && owner ? toQt(owner->desktop().locale().dateAndTime(*mEdit.lastRead())) : word(Word::Never, language));
  }
  return told;
}

bool EditRenderer::key(QKeyEvent& event) {
  const bool escape = event.key() == Qt::Key_Escape;
  if (!escape && !event.matches(QKeySequence::Undo)) return false;
  if (!hasTyping() && !mEdit.Modified()) return false;
  takeBack();
  return true;
}

void EditRenderer::takeBack() {
  dropTyping();
  if (mEdit.Modified())
    act([this] { mEdit.restore(); }, UserInput::restoring(mEdit));
  else
    page().changed(mEdit);
}

}  // namespace ostrand
