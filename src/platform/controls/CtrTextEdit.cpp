#include "platform/controls/CtrTextEdit.h"

#include <algorithm>
#include <cmath>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

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

std::string CtrTextEdit::shown(const std::string& documentText) const {
  if (!mInfo.isNumeric()) return documentText;
  const bool converts = mTranslator.displayUnit() != mInfo.unit;
  return mTranslator.shown(mInfo, documentText, locale(), converts ? converter().get() : nullptr);
}

std::optional<std::string> CtrTextEdit::told() const {
  if (!mTyped) return mStored;
  return told(Typed(*mTyped));
}

std::optional<std::string> CtrTextEdit::told(const Typed& typed) const {
  if (!mInfo.isNumeric() || typed.text.empty()) return typed.text;
  const auto value = ValueTranslator::typedNumber(typed.text);
  if (!value) return std::nullopt;
  if (typed.unit == mInfo.unit) return withSeparator(typed.text, ',', '.');
  return ValueTranslator::told(mInfo, *value, typed.unit, converter().get());
}

// The same number, told in another unit, may come out at another last digit.
bool CtrTextEdit::isStored(const Typed& typed) const {
  const auto text = told(typed);
  if (!text) return !ValueTranslator::typedNumber(typed.text) && typed.text == mStored;
  const auto value = mInfo.isNumeric() ? parseNumber(*text, '.') : std::nullopt;
  const auto stored = mInfo.isNumeric() ? parseNumber(mStored, '.') : std::nullopt;
  if (!value || !stored) return *text == mStored;
  if (typed.unit == mInfo.unit) return *value == *stored;
  const auto shownValue = ValueTranslator::typedNumber(typed.text);
  return std::abs(*value - *stored) <= 1e-12 * std::max({std::abs(*value), std::abs(*stored), std::abs(shownValue.value_or(0))});
}

std::optional<double> CtrTextEdit::number() const {
  const auto text = told();
  return text ? parseNumber(*text, '.') : std::nullopt;
}

bool CtrTextEdit::passes() const {
  if (!mInfo.isNumeric()) return true;
  // What is asked of the host below may bring another value.
  const std::optional<Typed> typed = mTyped;
  // An empty field is wrong only where the user has emptied it.
  if (typed ? typed->text.empty() : mStored.empty()) return !typed || !typed->byUser || mStored.empty();
  const auto value = number();
  if (!value) return false;
  if (mInfo.isInteger() && *value != std::floor(*value)) return false;
  // A limit told in another unit is rounded to the shown decimals; typing what the screen shows must pass.
  double tolerance = 1e-9 * std::max(1.0, std::abs(*value));
  if (typed && typed->unit != mInfo.unit) {
    double one = 0, zero = 0;
    const std::string unit = mInfo.unit;
    const Ref<IUnitConverter> service = converter();
    if (service && service->ConvertValue(1.0, typed->unit, unit, one) && service->ConvertValue(0.0, typed->unit, unit, zero))
      tolerance += 0.5 * std::pow(10.0, -mInfo.decimals.value_or(6)) * std::abs(one - zero);
  }
  if (mInfo.min && *value < *mInfo.min - tolerance) return false;
  if (mInfo.max && *value > *mInfo.max + tolerance) return false;
  if (mLowers.empty()) return true;
  // Held meanwhile: the other edits ask the host too.
  std::vector<std::pair<Lower, Ref<Component>>> lowers;
  for (const Lower& lower : mLowers) lowers.emplace_back(lower, lower.edit->owner());
  return std::all_of(lowers.begin(), lowers.end(), [&](const auto& held) {
    const auto bound = held.first.edit->number();
    return !bound || *value >= *bound + held.first.margin - tolerance;
  });
}

std::string CtrTextEdit::received(const Node& item, std::string value) const {
  if (!mInfo.isNumeric() || !mInfo.hasConvertibleUnit()) return value;
  const std::string unit(item.findAttribute("unit").value_or(""));
  if (unit.empty() || unit == "noUnit" || unit == mInfo.unit) return value;
  const auto number = parseNumber(value, '.');
  if (!number) return value;
  return ValueTranslator::told(mInfo, *number, unit, converter().get()).value_or(value);
}

std::string CtrTextEdit::shownLimit(const std::optional<double>& limit) const {
  return limit ? shown(plainText(*limit, '.')) : std::string();
}

// --- changes

void CtrTextEdit::parameterChanged() {
  if (mInfo.isNumeric() && mInfo.hasConvertibleUnit())
    mTranslator.chooseUnit(mInfo, converter().get());
  else
    mTranslator.chooseUnit(mInfo, nullptr);
}

void CtrTextEdit::unitsChanged() {
  if (!owner()) return;
  parameterChanged();
  update(mTyped ? typedOnScreen() : shown(mStored), mModified);
  changedNow();
}

std::string CtrTextEdit::typedOnScreen() const {
  const Typed typed = *mTyped;
  const std::string unit = mTranslator.displayUnit();
  // What code has set stands as it was set, for as long as its unit is on the screen.
  if (!mInfo.isNumeric() || (!typed.byUser && typed.unit == unit)) return typed.text;
  auto value = ValueTranslator::typedNumber(typed.text);
  if (!value) return typed.text;
  // A fraction where a whole number is wanted stands there as it was typed, not rounded to what would pass.
  if (mInfo.isInteger() && *value != std::floor(*value)) return withSeparator(typed.text, '.', locale().decimalSeparator);
  if (typed.unit != unit) {
    const Ref<IUnitConverter> service = converter();
    if (!service || !service->ConvertValue(*value, typed.unit, unit, *value)) return typed.text;
  }
  return ValueTranslator::format(mInfo, *value, locale());
}

void CtrTextEdit::takeTyped(std::string text, std::string unit, bool byUser) {
  const Ref<Component> pin(owner());
  Typed typed{std::move(text), std::move(unit), byUser};
  bool edited = (byUser || (mModified && !typed.text.empty())) && !isStored(typed);
  if (byUser && edited && mInfo.isNumeric()) {
    if (const auto value = ValueTranslator::typedNumber(typed.text)) {
      // The decimals are those of the screen, so what is told in another unit keeps its own.
      const bool onScreen = typed.unit == mTranslator.displayUnit();
      const bool rounds = onScreen && mInfo.decimals && !(mInfo.isInteger() && *value != std::floor(*value));
      typed.text = rounds ? fixedText(*value, *mInfo.decimals, '.') : plainText(*value, '.');
      edited = !isStored(typed);
    }
  }
  if (byUser && !edited) {
    // What was typed back to the stored value is no edit any more.
    mTyped.reset();
    update(shown(mStored), false);
    return;
  }
  mTyped = std::move(typed);
  update(typedOnScreen(), edited);
}

void CtrTextEdit::loadEdit(const std::string& documentText) {
  mTyped = Typed{documentText, mInfo.unit, true};
  update(typedOnScreen(), true);
}

void CtrTextEdit::takeText(const std::string& text) { takeTyped(text, mTranslator.displayUnit(), false); }

void CtrTextEdit::type(const std::string& text) {
  requireEditable();
  const Ref<Component> pin(owner());
  std::string typed = mRestricted ? restricted(text) : text;
  std::string unit = mTranslator.displayUnit();
  if (mInfo.isNumeric() && mInfo.hasConvertibleUnit()) {
    const std::size_t blank = typed.find_last_of(' ');
    if (blank != typed.npos && blank > 0 && ValueTranslator::typedNumber(typed.substr(0, blank))) {
      const std::string behind = typed.substr(blank + 1);
      double ignored = 0;
      const Ref<IUnitConverter> service = converter();
      if (behind == mInfo.unit || (service && service->ConvertValue(1.0, behind, mInfo.unit, ignored))) {
        unit = behind;
        typed.resize(blank);
      }
    }
  }
  takeTyped(std::move(typed), std::move(unit), true);
}

std::string CtrTextEdit::restricted(const std::string& text) const {
  std::string kept;
  for (char c : text) {
    if (mInfo.isNumeric()) {
      const bool digit = c >= '0' && c <= '9';
      const bool sign = c == '-' || c == '+';
      const bool fraction = !mInfo.isInteger() && (c == '.' || c == ',' || c == 'e' || c == 'E');
      if (digit || sign || fraction) kept += c;
    } else {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
      if (c >= ' ' && c <= '_') kept += c;
    }
  }
  return kept;
}

}  // namespace ostrand
