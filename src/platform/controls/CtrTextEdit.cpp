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
  const std::vector<CtrTextEdit*> uppers = mUppers;
  clearRelations();
  recheck();
  for (CtrTextEdit* upper : uppers) upper->recheck();
}

void CtrTextEdit::clearRelations() {
  for (const Lower& lower : mLowers) std::erase(lower.edit->mUppers, this);
  for (CtrTextEdit* upper : mUppers) std::erase_if(upper->mLowers, [&](const Lower& at) { return at.edit == this; });
  mLowers.clear();
  mUppers.clear();
}

void CtrTextEdit::recheckOthers() {
  for (CtrTextEdit* upper : std::vector(mUppers)) upper->recheck();
}

// --- between document and screen

std::string CtrTextEdit::shown(const std::string& documentText) const {
  if (!mInfo.isNumeric()) return documentText;
  const bool converts = mTranslator.displayUnit() != mInfo.unit;
  return mTranslator.shown(mInfo, documentText, locale(), converts ? converter().get() : nullptr);
}

std::optional<std::string> CtrTextEdit::told() const {
  if (!mTyped) return mStored;
  if (!mInfo.isNumeric() || mTyped->text.empty()) return mTyped->text;
  const auto value = ValueTranslator::typedNumber(mTyped->text);
  if (!value) return std::nullopt;
  if (mTyped->unit == mInfo.unit) return withSeparator(mTyped->text, ',', '.');
  return ValueTranslator::told(mInfo, *value, mTyped->unit, converter().get());
}

std::optional<double> CtrTextEdit::number() const {
  const auto text = told();
  return text ? parseNumber(*text, '.') : std::nullopt;
}

bool CtrTextEdit::passes() const {
  if (!mInfo.isNumeric()) return true;
  // An empty field is wrong only where the user has emptied it.
  if (mTyped ? mTyped->text.empty() : mStored.empty()) return !mTyped || !mTyped->byUser || mStored.empty();
  const auto value = number();
  if (!value) return false;
  if (mInfo.isInteger() && *value != std::floor(*value)) return false;
  // A limit told in another unit is rounded to the shown decimals; typing what the screen shows must pass.
  double tolerance = 1e-9 * std::max(1.0, std::abs(*value));
  if (mTyped && mTyped->unit != mInfo.unit) {
    double one = 0, zero = 0;
    const Ref<IUnitConverter> service = converter();
    if (service && service->ConvertValue(1.0, mTyped->unit, mInfo.unit, one) && service->ConvertValue(0.0, mTyped->unit, mInfo.unit, zero))
      tolerance += 0.5 * std::pow(10.0, -mInfo.decimals.value_or(6)) * std::abs(one - zero);
  }
  if (mInfo.min && *value < *mInfo.min - tolerance) return false;
  if (mInfo.max && *value > *mInfo.max + tolerance) return false;
  return std::all_of(mLowers.begin(), mLowers.end(), [&](const Lower& lower) {
    const auto bound = lower.edit->number();
    return !bound || *value >= *bound + lower.margin - tolerance;
  });
}

std::string CtrTextEdit::received(const Node& item, std::string value) const {
  if (!mInfo.isNumeric() || !mInfo.hasConvertibleUnit()) return value;
  const std::string_view unit = item.findAttribute("unit").value_or("");
  if (unit.empty() || unit == "noUnit" || unit == mInfo.unit) return value;
  const auto number = parseNumber(value, '.');
  if (!number) return value;
  return ValueTranslator::told(mInfo, *number, std::string(unit), converter().get()).value_or(value);
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
  // What code has set stands as it was set, for as long as its unit is on the screen.
  if (!mInfo.isNumeric() || (!mTyped->byUser && mTyped->unit == mTranslator.displayUnit())) return mTyped->text;
  auto value = ValueTranslator::typedNumber(mTyped->text);
  if (!value) return mTyped->text;
  // A fraction where a whole number is wanted stands there as it was typed, not rounded to what would pass.
  if (mInfo.isInteger() && *value != std::floor(*value)) return withSeparator(mTyped->text, '.', locale().decimalSeparator);
  if (mTyped->unit != mTranslator.displayUnit()) {
    const Ref<IUnitConverter> service = converter();
    if (!service || !service->ConvertValue(*value, mTyped->unit, mTranslator.displayUnit(), *value)) return mTyped->text;
  }
  return ValueTranslator::format(mInfo, *value, locale());
}

void CtrTextEdit::takeTyped(std::string text, std::string unit, bool byUser) {
  mTyped = Typed{std::move(text), std::move(unit), byUser};
  if (byUser && mInfo.isNumeric()) {
    if (const auto value = ValueTranslator::typedNumber(mTyped->text)) {
      // The decimals are those of the screen, so what is told in another unit keeps its own.
      const bool onScreen = mTyped->unit == mTranslator.displayUnit();
      const bool rounds = onScreen && mInfo.decimals && !(mInfo.isInteger() && *value != std::floor(*value));
      mTyped->text = rounds ? fixedText(*value, *mInfo.decimals, '.') : plainText(*value, '.');
    }
  }
  std::string screen = typedOnScreen();
  // What was typed back to the stored value is no edit any more.
  const bool modified = byUser && screen != shown(mStored);
  if (byUser && !modified) mTyped.reset();
  update(std::move(screen), modified);
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
