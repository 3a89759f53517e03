#pragma once

#include <string>

#include "platform/types/IUnitConverter.h"

namespace ostrand {

// The user's unit for a parameter: asks the host for the name, then for the lower-cased rest of the name
// from each capital (or digit) on, so that "sample1Torque" finds what is registered for "torque". False if
// the host knows none; `unit` is then untouched.
bool findUserUnit(IUnitConverter& converter, std::string parameterName, std::string& unit);

}  // namespace ostrand
