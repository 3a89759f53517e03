#pragma once

#include "views/DeviceSpecific.h"

namespace ostrand {

// The pictures of the optical multi-channel transmitter.
class CtrDeviceSpecificQX5 : public DeviceSpecific {
 public:
  CtrDeviceSpecificQX5() : DeviceSpecific("CtrDeviceSpecificQX5", "qx5") {}
};

}  // namespace ostrand
