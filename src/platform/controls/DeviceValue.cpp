#include "platform/controls/DeviceValue.h"

#include <algorithm>
#include <cmath>

#include "platform/base/NumberText.h"
#include "platform/controls/UnitSearch.h"

namespace ostrand {

namespace {

// The units are copies: the service may be the host's, who may change what they were taken from.
std::optional<double> convertedByService(double value, const std::string from, const std::string to, const UnitSource& units) {
  const Ref<IUnitConverter> service = units.converter();
  if (!service || !service->ConvertValue(value, from, to, value)) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> converted(double value, const std::string& from, const std::string& to, const UnitSource& units) {
  return from == to ? value : convertedByService(value, from, to, units);
}

std::optional<double> typedNumber(const std::string& text) { return parseNumber(withSeparator(text, ',', '.'), '.'); }

// --- documents

ParameterValues DeviceValue::describe(const Node& parameter) {
  const bool isShown = mDisplayUnit == mInfo.unit;
  const std::string unitBefore = isShown ? std::string() : mInfo.unit;
  const ParameterValues values = mInfo.read(parameter);
  if (isShown || mInfo.unit != unitBefore) mDisplayUnit = mInfo.unit;
  return values;
}

void DeviceValue::chooseUnit(std::string_view name, const UnitSource& units) {
  if (!mInfo.isNumeric() || !mInfo.hasConvertibleUnit()) {
    if (mDisplayUnit != mInfo.unit) mDisplayUnit = mInfo.unit;
    return;
  }
  const std::string dataUnit = mInfo.unit, parameterName(name);
  const Ref<IUnitConverter> service = units.converter();
  std::string unit;
  double ignored = 0;
  const bool isKnown =
      service && findUserUnit(*service, parameterName, unit) && unit != dataUnit && service->ConvertValue(1.0, dataUnit, unit, ignored);
  mDisplayUnit = isKnown ? unit : dataUnit;
}

std::string DeviceValue::documentText(std::string_view text) const { return std::string(mInfo.isNumeric() ? trimmed(text) : text); }

std::optional<DeviceValue::Received> DeviceValue::received(const Node& item, const ParameterInfo& info, const UnitSource& units) {
  const Node element = valueElement(item, info.type);
  if (!element) return std::nullopt;
  std::string text = element.text();
  if (!info.isNumeric()) return Received{std::move(text), true};
  text = trimmed(text);
  const auto number = parseNumber(text, '.');
  if (!number) return Received{text, text == "NaN" || text == "-Inf"};
  const std::string unit(item.findAttribute("unit").value_or(""));
  // A unit that is not told, or has no factor, is the data set's.
  if (unit.empty() || unit == "noUnit" || unit == info.unit || unit.find('%') != unit.npos || !info.hasConvertibleUnit())
    return Received{std::move(text), true};
  if (const auto value = converted(*number, unit, info.unit, units)) return Received{plainText(*value, '.'), true};
  return Received{text + " " + unit, false};
}

// --- between document and screen

std::string DeviceValue::shown(const std::string& documentText, const Locale& locale, const UnitSource& units) const {
  if (!mInfo.isNumeric()) return documentText;
  if (mInfo.decimals && mDisplayUnit == mInfo.unit && hasDecimals(documentText, *mInfo.decimals))
    return withSeparator(documentText, '.', locale.decimalSeparator);
  const auto number = parseNumber(documentText, '.');
  if (!number) return documentText;
  const auto value = converted(*number, mInfo.unit, mDisplayUnit, units);
  if (!value) return documentText;
  return mInfo.decimals ? fixedText(*value, *mInfo.decimals, locale.decimalSeparator) : plainText(*value, locale.decimalSeparator);
}

bool DeviceValue::isWrongFraction(double value) const { return mInfo.isInteger() && value != std::floor(value); }

std::string DeviceValue::onScreen(const Locale& locale, const UnitSource& units) const {
  if (!mEdit) return shown(mStored, locale, units);
  const Edit edit = *mEdit;
  // What code has set stands as it was set, for as long as its unit is on the screen.
  if (!mInfo.isNumeric() || (!edit.byUser && edit.unit == mDisplayUnit)) return edit.text;
  const auto number = typedNumber(edit.text);
  if (!number) return edit.text;
  // A fraction where a whole number is wanted stands there as it was typed, not rounded to what would pass.
  if (isWrongFraction(*number)) return withSeparator(edit.text, '.', locale.decimalSeparator);
  const auto value = converted(*number, edit.unit, mDisplayUnit, units);
  if (!value) return edit.text;
  return mInfo.decimals ? fixedText(*value, *mInfo.decimals, locale.decimalSeparator) : plainText(*value, locale.decimalSeparator);
}

std::optional<std::string> DeviceValue::told(const Edit& edit, const UnitSource& units) const {
  if (!mInfo.isNumeric() || edit.text.empty()) return edit.text;
  const auto number = typedNumber(edit.text);
  if (!number) return std::nullopt;
  if (edit.unit == mInfo.unit) return withSeparator(edit.text, ',', '.');
  const auto value = converted(*number, edit.unit, mInfo.unit, units);
  return value ? std::optional(plainText(*value, '.')) : std::nullopt;
}

std::optional<double> DeviceValue::number(const UnitSource& units) const {
  if (!mEdit) return parseNumber(mStored, '.');
  const auto text = told(units);
  return text ? parseNumber(*text, '.') : std::nullopt;
}

// --- edits

// Told in another unit, the same number may come out with another last digit.
bool DeviceValue::isStored(const Edit& edit, const UnitSource& units) const {
  const auto text = told(edit, units);
  const auto typed = mInfo.isNumeric() ? typedNumber(edit.text) : std::nullopt;
  if (!text) return !typed && edit.text == mStored;
  const auto stored = typed ? parseNumber(mStored, '.') : std::nullopt;
  if (!stored) return *text == mStored;
  const auto value = parseNumber(*text, '.');
  if (!value) return false;
  const double largest = std::max({std::abs(*value), std::abs(*stored), std::abs(*typed)});
  return std::abs(*value - *stored) <= (edit.unit == mInfo.unit ? 0.0 : 1e-12 * largest);
}

DeviceValue::Edit DeviceValue::rounded(Edit edit) const {
  const auto value = mInfo.isNumeric() ? typedNumber(edit.text) : std::nullopt;
  if (!value) return edit;
  const bool rounds = edit.unit == mDisplayUnit && mInfo.decimals && !isWrongFraction(*value);
  edit.text = rounds ? fixedText(*value, *mInfo.decimals, '.') : plainText(*value, '.');
  return edit;
}

DeviceValue::Check DeviceValue::check(const UnitSource& units) const {
  if (!mInfo.isNumeric()) return {true, std::nullopt};
  // An empty field is wrong only where the user has emptied it.
  const std::optional<Edit> edit = mEdit;
  if (edit ? edit->text.empty() : mStored.empty()) return {!edit || !edit->byUser || mStored.empty(), std::nullopt};
  const auto value = number(units);
  if (!value || isWrongFraction(*value)) return {false, value};
  double tolerance = 1e-9 * std::max(1.0, std::abs(*value));
  // A limit told in another unit is rounded to the shown decimals; typing what the screen shows must pass.
  if (edit && edit->unit != mInfo.unit) {
    const auto one = converted(1.0, edit->unit, mInfo.unit, units), zero = converted(0.0, edit->unit, mInfo.unit, units);
    if (one && zero) tolerance += 0.5 * std::pow(10.0, -mInfo.decimals.value_or(6)) * std::abs(*one - *zero);
  }
  const bool passes = !(mInfo.min && *value < *mInfo.min - tolerance) && !(mInfo.max && *value > *mInfo.max + tolerance);
  return {passes, value, tolerance};
}

}  // namespace ostrand
