#pragma once

#include <cstdint>

#include "platform/types/IObject.h"

namespace ostrand {

// The host's service for the device's bus address. Both operations answer whether they were done.
class IAddressService : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a03");

  virtual bool GetBusAddress(std::uint8_t& address, std::uint8_t& second) = 0;
  virtual bool SetBusAddress(std::uint8_t address, std::uint8_t second) = 0;
};

}  // namespace ostrand
