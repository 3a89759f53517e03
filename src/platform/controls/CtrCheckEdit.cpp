#include "platform/controls/CtrCheckEdit.h"

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

bool isZero(const std::string& value) { return parseNumber(value, '.').value_or(1.0) == 0.0; }

}  // namespace

bool CtrCheckEdit::isOn() const {
  if (const Choice* const choice = mChoices.byKey(mText)) return !isZero(choice->value);
  return !mText.empty() && !isZero(mText);
}

bool CtrCheckEdit::Value() const {
  const bool on = isOn();
  return read(on, "Value"), on;
}

std::string CtrCheckEdit::keyFor(bool on) const {
  for (const Choice& choice : mChoices)
    if (isZero(choice.value) != on) return choice.key;
  return on ? "1" : "0";
}

void CtrCheckEdit::click() {
  requireEditable();
  pick(keyFor(!isOn()));
}

Value CtrCheckEdit::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Value") return isOn();
  return ChoiceEdit::get(property, indices);
}

}  // namespace ostrand
