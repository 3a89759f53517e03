#include "views/DeviceSpecific.h"

#include "platform/controls/Form.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Query.h"
#include "views/Artwork.h"

namespace ostrand {

void DeviceSpecific::declare(Form& form) {
  form.hidden(imlDevice, "");
  for (const char* key : {"logo", "device"}) imlDevice.Add(key, artwork(mFamily, key));
}

bool DeviceSpecific::offerInterface(const Guid& id, void** out) noexcept { return offer<ITaviDeviceSpecific>(id, this, out); }

Picture DeviceSpecific::GetDeviceImage(const std::string&) { return picture("ITaviDeviceSpecific_GetDeviceImage", "device"); }

Picture DeviceSpecific::GetDeviceLogo(const std::string&) { return picture("ITaviDeviceSpecific_GetDeviceLogo", "logo"); }

Picture DeviceSpecific::picture(std::string_view procedure, const char* key) {
  Procedure proc(*this, procedure);
  return proc.value(Picture(), [&] { return imlDevice.ListImage(key); });
}

}  // namespace ostrand
