#pragma once

#include <string_view>

#include "platform/controls/Component.h"
#include "platform/controls/ImageList.h"

namespace ostrand {

// What the invisible controls share that supply a device family's two pictures: all but the pictures.
class DeviceSpecific : public Component, public ITaviDeviceSpecific {
 public:
  // Empty if the picture cannot be had.
  Picture GetDeviceImage(const std::string& argument) override;
  Picture GetDeviceLogo(const std::string& argument) override;

  std::string_view objectName() const override { return mObjectName; }

 protected:
  // `family` names the drawings: artwork/<family>-device.svg and artwork/<family>-logo.svg.
  DeviceSpecific(std::string_view objectName, std::string_view family) : mObjectName(objectName), mFamily(family) {}
  void declare(Form& form) override;
  bool offerInterface(const Guid& id, void** out) noexcept override;

 private:
  Picture picture(std::string_view procedure, const char* key);

  std::string_view mObjectName;
  std::string_view mFamily;
  ImageList imlDevice{"imlDevice"};
};

}  // namespace ostrand
