#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostObject.h"
#include "platform/types/IUnitConverter.h"

namespace ostrand {

// The units of the mill and the user's choice among them, from a file of the form
//
//   <units>
//     <quantity name="temperature" base="degC">
//       <unit key="degF" factor="0.5555555555555556" offset="-17.77777777777778"/>   in base unit = value * factor + offset
//     </quantity>
//     <parameter name="processTemperature" quantity="temperature"/>
//   </units>
//
// Values in percent are never converted from or to anything but another spelling of the same unit.
class UnitService : public HostObject<IUnitConverter> {
 public:
  struct Quantity {
    std::string name;
    std::string base;
    std::vector<std::string> units;  // keys, in the order of the file
    std::string chosen;              // empty until the user has chosen
  };

  // A service without units, which converts nothing.
  UnitService() = default;
  // RuntimeError 53, 70 or 5, each names the file.
  static Ref<UnitService> open(const std::filesystem::path& file);

  const std::vector<Quantity>& quantities() const { return mQuantities; }
  // RuntimeError 5 for a quantity or a unit that there is not; an empty unit takes the choice back. Views take it up with
  // the event ViewSetUnits.
  void choose(std::string_view quantity, std::string_view unit);
  bool knows(std::string_view unit) const { return mUnits.contains(unit); }

  bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) override;
  // The name as it stands; the tails of a name are the caller's affair.
  bool GetUnitInfo(const std::string& name, std::string& unit) override;

 private:
  struct Unit {
    std::size_t quantity;
    double factor;
    double offset;
  };
  const Quantity& require(std::string_view quantity) const;

  std::vector<Quantity> mQuantities;
  std::map<std::string, Unit, std::less<>> mUnits;
  std::map<std::string, std::size_t, std::less<>> mParameters;
};

}  // namespace ostrand
