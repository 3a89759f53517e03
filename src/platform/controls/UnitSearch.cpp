#include "platform/controls/UnitSearch.h"

namespace ostrand {

bool findUserUnit(IUnitConverter& converter, std::string parameterName, std::string& unit) {
  std::string found;
  std::string name = parameterName;
  if (converter.GetUnitInfo(name, found)) {
    unit = std::move(found);
    return true;
  }
  for (std::size_t i = 0; i < parameterName.size(); ++i) {
    const char c = parameterName[i];
    if (c >= 'a' && c <= 'z') continue;
    name = parameterName.substr(i);
    if (c >= 'A' && c <= 'Z') name[0] = static_cast<char>(c - 'A' + 'a');
    if (converter.GetUnitInfo(name, found)) {
      unit = std::move(found);
      return true;
    }
  }
  return false;
}

}  // namespace ostrand
