#pragma once

#include <string>

#include "platform/types/IObject.h"

namespace ostrand {

// The object in which the host places a view. Its operations are found by name at run time: a container
// without one throws RuntimeError 438.
class IHostContainer : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a04");

  // Takes a write request (a bare communicationRequest element) and writes it to the device.
  virtual void DTMGUIDownload(const std::string& xml, const std::string& name, int one) = 0;
  // The folder of the system's XML files, with its closing separator.
  virtual std::string DTMGUIGetXmlPath() = 0;
};

// Optional beside IHostContainer: what the view is busy with ("sampling", "testing", or empty).
class INotifyStatus : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a05");

  virtual void NotifyStatus(const std::string& key, int first, int second) = 0;
};

}  // namespace ostrand
