#pragma once

#include "views/DeviceSpecific.h"

namespace ostrand {

// The pictures of the blade transmitters.
class CtrDeviceSpecific : public DeviceSpecific {
 public:
  CtrDeviceSpecific() : DeviceSpecific("CtrDeviceSpecific", "blade") {}
};

}  // namespace ostrand
