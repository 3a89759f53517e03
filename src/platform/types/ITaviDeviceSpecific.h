#pragma once

#include <string>

#include "platform/types/IObject.h"

namespace ostrand {

// A picture as text of a vector drawing (SVG), empty when there is none.
struct Picture {
  int width = 0;  // pixels
  int height = 0;
  std::string svg;
};

// The host's two pictures of a device family. The argument is not looked at.
class ITaviDeviceSpecific : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a0c");

  virtual Picture GetDeviceImage(const std::string& argument) = 0;
  virtual Picture GetDeviceLogo(const std::string& argument) = 0;
};

}  // namespace ostrand
