#include "platform/controls/CtrTextEdit.h"

#include <algorithm>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

namespace {

// A text is written the same everywhere, also while the edit is not placed yet.
const Locale& localeOf(const CtrTextEdit& edit) {
  if (!edit.info().isNumeric()) return Locale::english();
  if (!edit.owner()) throwNothingThere("the control's owner");
  return edit.owner()->desktop().locale();
}

}  // namespace

void CtrTextEdit::SetTextOption(bool restrict) {
  if (probe()) announce("SetTextOption", restrict ? " true" : " false");
  mRestricted = restrict;
}

// --- relations between two edits

void CtrTextEdit::AddValueRelation(CtrTextEdit& lower, const std::string& relation, double margin) {
  if (probe()) announce("AddValueRelation", " " + lower.name() + " " + inQuotes(relation) + " " + plainText(margin, '.'));
  if (relation != "max") throw RuntimeError(RuntimeError::BadArgument, "unknown relation \"" + relation + "\"");
  const auto known = std::find_if(mLowers.begin(), mLowers.end(), [&](const Lower& at) { return at.edit == &lower; });
  if (known != mLowers.end()) {
    known->margin = margin;
  } else {
    mLowers.push_back({&lower, margin});
    lower.mUppers.push_back(this);
  }
  recheck();
}

void CtrTextEdit::ClearValueRelations() {
  announce("ClearValueRelations");
  const Ref<Component> pin(owner());
  const std::vector<Upper> uppers = heldUppers();
  clearRelations();
  recheck();
  for (const Upper& upper : uppers) upper.edit->recheck();
}

std::vector<CtrTextEdit::Upper> CtrTextEdit::heldUppers() const {
  std::vector<Upper> held;
  for (CtrTextEdit* const upper : mUppers) held.push_back({upper, Ref<Component>(upper->owner())});
  return held;
}

void CtrTextEdit::clearRelations() {
  for (const Lower& lower : mLowers) std::erase(lower.edit->mUppers, this);
  for (CtrTextEdit* upper : mUppers) std::erase_if(upper->mLowers, [&](const Lower& at) { return at.edit == this; });
  mLowers.clear();
  mUppers.clear();
}

void CtrTextEdit::recheckOthers() {
  for (const Upper& upper : heldUppers()) upper.edit->recheck();
}

// --- between document and screen

std::string CtrTextEdit::shown(const std::string& documentText) const { return mValue.shown(documentText, localeOf(*this), *this); }

std::optional<std::string> CtrTextEdit::told() const { return mValue.told(*this); }

bool CtrTextEdit::passes() const {
  const DeviceValue::Check check = mValue.check(*this);
  if (!check.passes || !check.number || mLowers.empty()) return check.passes;
  // Held meanwhile: the other edits ask the host too.
  std::vector<std::pair<Lower, Ref<Component>>> lowers;
  for (const Lower& lower : mLowers) lowers.emplace_back(lower, lower.edit->owner());
  return std::all_of(lowers.begin(), lowers.end(), [&](const auto& held) {
    const auto bound = held.first.edit->mValue.number(*held.first.edit);
    return !bound || *check.number >= *bound + held.first.margin - check.tolerance;
  });
}

std::string CtrTextEdit::shownLimit(const std::optional<double>& limit) const { return limit ? shown(plainText(*limit, '.')) : std::string(); }

// --- changes

void CtrTextEdit::unitsChanged() {
  if (!owner()) return;
  mValue.chooseUnit(parameterName(), *this);
  update(mValue.onScreen(localeOf(*this), *this), mModified);
  changedNow();
}

void CtrTextEdit::takeEdit(DeviceValue::Edit edit) {
  const Ref<Component> pin(owner());
  bool edited = (edit.byUser || (mModified && !edit.text.empty())) && !mValue.isStored(edit, *this);
  if (edit.byUser && edited) {
    edit = mValue.rounded(std::move(edit));
    edited = !mValue.isStored(edit, *this);
  }
  // What was typed back to the stored value is no edit any more.
  if (edit.byUser && !edited)
    mValue.dropEdit();
  else
    mValue.edit(std::move(edit));
  update(mValue.onScreen(localeOf(*this), *this), edited);
}

void CtrTextEdit::loadEdit(const std::string& documentText) {
  mValue.edit({documentText, info().unit, true});
  update(mValue.onScreen(localeOf(*this), *this), true);
}

void CtrTextEdit::takeText(const std::string& text) { takeEdit({text, mValue.displayUnit(), false}); }

void CtrTextEdit::type(const std::string& text) {
  requireEditable();
  const Ref<Component> pin(owner());
  takeEdit(typedEdit(mRestricted ? restricted(text) : text));
}

DeviceValue::Edit CtrTextEdit::typedEdit(std::string text) const {
  std::string unit = mValue.displayUnit();
  const std::size_t blank = text.find_last_of(' ');
  if (info().isNumeric() && info().hasConvertibleUnit() && blank != text.npos && blank > 0 && typedNumber(text.substr(0, blank))) {
    const std::string behind = text.substr(blank + 1), dataUnit = info().unit;
    double ignored = 0;
    const Ref<IUnitConverter> service = converter();
    if (behind == dataUnit || (service && service->ConvertValue(1.0, behind, dataUnit, ignored))) {
      unit = behind;
      text.resize(blank);
    }
  }
  return {std::move(text), std::move(unit), true};
}

std::string CtrTextEdit::restricted(const std::string& text) const {
  std::string kept;
  for (char c : text) {
    if (info().isNumeric()) {
      const bool digit = c >= '0' && c <= '9';
      const bool sign = c == '-' || c == '+';
      const bool fraction = !info().isInteger() && (c == '.' || c == ',' || c == 'e' || c == 'E');
      if (digit || sign || fraction) kept += c;
    } else {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
      if (c >= ' ' && c <= '_') kept += c;
    }
  }
  return kept;
}

}  // namespace ostrand
