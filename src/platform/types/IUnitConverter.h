#pragma once

#include <string>

#include "platform/types/IObject.h"

namespace ostrand {

// The host's unit service.
class IUnitConverter : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a02");

  // `result` is `value` (in the unit `from`) told in the unit `to`; false if the host cannot convert.
  virtual bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) = 0;
  // The unit key that the user chose for the quantity of this parameter name; false if the host knows none.
  virtual bool GetUnitInfo(const std::string& name, std::string& unit) = 0;
};

}  // namespace ostrand
