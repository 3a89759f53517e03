#pragma once

#include <string_view>

#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand {

// The drawing artwork/<family>-<key>.svg, which the build lays into the library. Error 53 if there is none.
Picture artwork(std::string_view family, std::string_view key);

}  // namespace ostrand
