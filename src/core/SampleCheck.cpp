#include "core/SampleCheck.h"

#include "core/modTools.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

double floatOf(const Node& item, const Locale& locale) {
  const Node value = item.child("comm:floatVal");
  if (!value) throwNothingThere("the value of the item");
  return modTools::ToLocalNumber(value.text(), locale);
}

void warnOfLargeDeviation(const Document& answer, const std::string& sample, const std::function<double(const Node& item)>& read,
                          Messenger& messenger) {
  constexpr double kLargePercentage = 5.0;
  const Node deviationItem = itemAnywhere(answer, sample + "Deviation");
  if (!deviationItem) return;
  const double deviation = read(deviationItem);
  const Node averageItem = itemAnywhere(answer, sample + "ConsistencyAverage");
  if (!averageItem) return;
  const double average = read(averageItem);
  if (average == 0.0) return;
  // No absolute value is taken: a negative deviation never warns.
  if (100.0 * deviation / average > kLargePercentage) messenger.ShowMessage("warning", sample + "DeviationLarge");
}

void showWhenFinal(const Document& answer, const std::string& name, const std::string& message, Messenger& messenger) {
  const Node node = responseAnywhere(answer);
  if (node.attribute("name") == name && node.attribute("isFinal") == "1") messenger.ShowMessage(name, message);
}

}  // namespace ostrand
