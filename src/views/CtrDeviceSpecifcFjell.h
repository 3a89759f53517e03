#pragma once

#include "views/DeviceSpecific.h"

namespace ostrand {

// The pictures of the low-consistency blade transmitter. Hosts know the class by this spelling.
class CtrDeviceSpecifcFjell : public DeviceSpecific {
 public:
  CtrDeviceSpecifcFjell() : DeviceSpecific("CtrDeviceSpecifcFjell", "fjell") {}
};

}  // namespace ostrand
