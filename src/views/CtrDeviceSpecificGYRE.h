#pragma once

#include "views/DeviceSpecific.h"

namespace ostrand {

// The pictures of the GYRE transmitters.
class CtrDeviceSpecificGYRE : public DeviceSpecific {
 public:
  CtrDeviceSpecificGYRE() : DeviceSpecific("CtrDeviceSpecificGYRE", "gyre") {}
};

}  // namespace ostrand
