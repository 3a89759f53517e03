#pragma once

#include "host/HostObject.h"
#include "platform/types/IAddressService.h"

namespace ostrand {

// The bus address under which the host speaks to its device.
class AddressService : public HostObject<IAddressService> {
 public:
  static constexpr std::uint8_t kHighest = 126;

  bool GetBusAddress(std::uint8_t& address, std::uint8_t& second) override {
    address = mAddress;
    second = 0;
    return true;
  }
  bool SetBusAddress(std::uint8_t address, std::uint8_t) override {
    if (address > kHighest) return false;
    mAddress = address;
    return true;
  }

 private:
  std::uint8_t mAddress = 0;
};

}  // namespace ostrand
