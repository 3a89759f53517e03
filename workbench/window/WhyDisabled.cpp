#include "workbench/window/WhyDisabled.h"

#include "platform/controls/CommandButton.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

QString whyDisabled(const Control& control, PlantDevice& device, const Texts& texts) {
  if (const auto* const edit = dynamic_cast<const EditControl*>(&control); edit && edit->info().readOnly)
    return texts.say("The device does not let this value be written");
  Host& host = device.host();
  if (dynamic_cast<const CommandButton*>(&control)) {
    if (host.communication().isBusy()) return texts.say("The communication is busy");
    if (host.user().session().level < 3) return texts.say("Needs user level 3 or more");
  }
  // A page may still say that it is busy when the device has confirmed that nothing runs.
  const bool runs = device.outputs().mayBeForced() || device.outputs().sampling();
  if (const std::string busy = device.busyWith(); runs && !busy.empty()) return texts.say("Not while this is running: %1").arg(texts(busy));
  return {};
}

}  // namespace ostrand
