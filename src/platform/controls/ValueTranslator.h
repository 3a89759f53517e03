#pragma once

#include <optional>
#include <string>

#include "platform/base/Locale.h"
#include "platform/base/Ref.h"
#include "platform/controls/ParameterInfo.h"
#include "platform/types/IUnitConverter.h"

namespace ostrand {

// The one way between a number in a document (point, data unit) and the same number on the screen (the
// user's separator, unit and decimals), in both directions.
class ValueTranslator {
 public:
  // The unit on the screen: the user's if the host knows one and can convert to it, else the data set's.
  void chooseUnit(const ParameterInfo& info, IUnitConverter* converter);
  const std::string& displayUnit() const { return mDisplayUnit; }

  // Document text to screen text. What is no number ("NaN", any text) stays as it is.
  std::string shown(const ParameterInfo& info, const std::string& documentText, const Locale& locale, IUnitConverter* converter) const;
  // A number as the screen writes it in the display unit.
  static std::string format(const ParameterInfo& info, double value, const Locale& locale);
  // A number that a user typed: point and comma both work.
  static std::optional<double> typedNumber(const std::string& text);
  // A number in any unit as document text in the data unit; nothing if the host cannot convert.
  static std::optional<std::string> told(const ParameterInfo& info, double value, const std::string& unit, IUnitConverter* converter);

 private:
  std::string mDisplayUnit = "noUnit";
};

}  // namespace ostrand
