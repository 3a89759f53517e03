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

KeptValue EditRenderer::kept() const { return panel().keptValue ? panel().keptValue(mEdit) : KeptValue{}; }

namespace {

std::optional<ValueState> stateOf(const KeptValue& kept) {
  switch (kept.shown) {
    case KeptValue::Shown::Nothing: return std::nullopt;
    case KeptValue::Shown::Kept: return ValueState::Accepted;
    case KeptValue::Shown::Device: return ValueState::Waiting;
  }
  return std::nullopt;
}

}  // namespace

// Behind the unit what cannot wait until somebody asks for the tooltip: between which limits a wrong value belongs, and the value
// that is kept for the device beside the one that the device has.
QString EditRenderer::companion(const ValueStates& states, const KeptValue& kept) const {
  const std::string& language = panel().language();
  QStringList parts{panel().unitText(mEdit.displayUnit())};
  if (states.value == ValueState::Wrong && mEdit.Modified()) {
    const QString between = limits();
    parts << (between.isEmpty() ? word(PanelWord::Wrong, language) : word(PanelWord::Limits, language) + QStringLiteral(": ") + between);
  }
  if (kept.shown == KeptValue::Shown::Kept) parts << word(PanelWord::OnDevice, language) + QStringLiteral(": ") + kept.other;
  if (kept.shown == KeptValue::Shown::Device) parts << QStringLiteral("→ ") + kept.other;
  parts.removeAll(QString());
  return parts.join(QStringLiteral("   "));
}

void EditRenderer::sync() {
  const KeptValue kept = this->kept();
  const ValueStates states = statesOf(mEdit, stateOf(kept));
  if (const QString text = companion(states, kept); mUnit->text() != text) mUnit->setText(text);
  setLook(*mUnit, "state", states.value == ValueState::Wrong ? QStringLiteral("wrong") : QString());
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

QString EditRenderer::limits() const {
  const auto* const text = dynamic_cast<const CtrTextEdit*>(&mEdit);
  if (!text) return {};
  const QString least = toQt(text->shownLimit(mEdit.info().min)), most = toQt(text->shownLimit(mEdit.info().max));
  if (!least.isEmpty() && !most.isEmpty()) return least + QStringLiteral(" – ") + most;
  if (!least.isEmpty()) return word(PanelWord::AtLeast, panel().language()) + QStringLiteral(" ") + least;
  return most.isEmpty() ? QString() : word(PanelWord::AtMost, panel().language()) + QStringLiteral(" ") + most;
}

QString EditRenderer::explanation() const {
  const std::string& language = panel().language();
  const ValueStates states = statesOf(mEdit, stateOf(kept()));
  QString told = QStringLiteral("<b>%1</b>").arg(word(states.value, language).toHtmlEscaped());
  const auto line = [&](const QString& text) { told += QStringLiteral("<br>") + text.toHtmlEscaped(); };
  const auto fact = [&](PanelWord name, const QString& text) { line(word(name, language) + QStringLiteral(": ") + text); };
  if (states.access)
    line(word(*states.access, language));
  else if (mEdit.KeepLocal() || mEdit.ExplicitApply())
    line(word(ValueState::HeldBack, language));
  if (const QString why = reason(); !why.isEmpty()) line(why);
  if (!mEdit.Error().empty()) line(panel().text(mEdit.Error()));

  const ParameterInfo& info = mEdit.info();
  if (const QString between = limits(); !between.isEmpty()) {
    const QString unit = panel().unitText(mEdit.displayUnit());
    fact(PanelWord::Limits, unit.isEmpty() ? between : between + QStringLiteral(" ") + unit);
  }
  if (!mEdit.parameterName().empty()) {
    fact(PanelWord::Parameter, toQt(std::string(mEdit.parameterName())));
    const QString unit = info.unit == "noUnit" ? QString() : QStringLiteral(" ") + toQt(info.unit);
    fact(PanelWord::RawValue, mEdit.stored().empty() ? QStringLiteral("–") : toQt(mEdit.stored()) + unit);
    const Component* const owner = mEdit.owner();
    fact(PanelWord::LastRead,
         mEdit.lastRead() && owner ? toQt(owner->desktop().locale().dateAndTime(*mEdit.lastRead())) : word(PanelWord::Never, language));
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
