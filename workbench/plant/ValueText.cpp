#include "workbench/plant/ValueText.h"

#include "platform/base/NumberText.h"
#include "platform/controls/Choices.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {


QString valueText(Host& host, const Texts& texts, const std::string& parameter, const std::string& value) {
  DataSet* const dataSet = host.dataSet();
  if (!dataSet || value.empty()) return {};
  const Choices choices(mapping(dataSet->document(), parameter));
  if (const Choice* const choice = choices.byValue(value)) return texts(choice->key);
  const ParameterInfo info = dataSet->info(parameter);
  const auto number = info.isFloat() ? parseNumber(value, '.') : std::nullopt;
  return qt(number ? fixedText(*number, info.decimals.value_or(2), host.desktop().locale().decimalSeparator) : value);
}

QString wholeValueText(Host& host, const Texts& texts, const std::string& parameter, const std::string& value) {
  const char separator = host.desktop().locale().decimalSeparator;
  const QString shown = valueText(host, texts, parameter, value);
  const auto number = parseNumber(value, '.');
  if (!number || !host.dataSet() || !host.dataSet()->info(parameter).isFloat() || parseNumber(shown.toStdString(), separator) == number) return shown;
  return qt(value).replace(QLatin1Char('.'), QLatin1Char(separator));
}

QString withUnit(const QString& text, const QString& unit) {
  return unit.isEmpty() || text.isEmpty() ? text : QStringLiteral("%1 %2").arg(text, unit);
}

}  // namespace ostrand
