#include "platform/controls/ValueTranslator.h"

#include "platform/base/NumberText.h"
#include "platform/controls/UnitSearch.h"

namespace ostrand {

void ValueTranslator::chooseUnit(const ParameterInfo& info, IUnitConverter* converter) {
  mDisplayUnit = info.unit;
  if (!converter || !info.isNumeric() || !info.hasConvertibleUnit()) return;
  const std::string dataUnit = info.unit;
  std::string unit;
  double ignored = 0;
  if (findUserUnit(*converter, info.name, unit) && unit != dataUnit && converter->ConvertValue(1.0, dataUnit, unit, ignored)) mDisplayUnit = unit;
}

std::string ValueTranslator::format(const ParameterInfo& info, double value, const Locale& locale) {
  if (info.decimals) return fixedText(value, *info.decimals, locale.decimalSeparator);
  return plainText(value, locale.decimalSeparator);
}

std::string ValueTranslator::shown(const ParameterInfo& info, const std::string& documentText, const Locale& locale, IUnitConverter* converter) const {
  if (!info.isNumeric()) return documentText;
  const std::optional<double> number = parseNumber(documentText, '.');
  if (!number) return documentText;
  double value = *number;
  if (mDisplayUnit != info.unit) {
    const std::string from = info.unit, to = mDisplayUnit;
    if (!converter || !converter->ConvertValue(value, from, to, value)) return documentText;
  }
  return format(info, value, locale);
}

std::optional<double> ValueTranslator::typedNumber(const std::string& text) { return parseNumber(withSeparator(text, ',', '.'), '.'); }

std::optional<std::string> ValueTranslator::told(const ParameterInfo& info, double value, const std::string& unit, IUnitConverter* converter) {
  if (const std::string dataUnit = info.unit; unit != dataUnit && (!converter || !converter->ConvertValue(value, unit, dataUnit, value))) return std::nullopt;
  return plainText(value, '.');
}

}  // namespace ostrand
