#include "views/VwInformationH.h"

#include "platform/trap/Procedure.h"

namespace ostrand {

VwInformationH::VwInformationH() : InformationView("VwInformationH", "CtrDateEdit1") {}

void VwInformationH::declare(Form& form) {
  FrameForm identification = frame(form, "identification", "date_identification");
  for (const char* parameter : {"tag", "description", "message"}) identify(identification, parameter);
  identifyDate(identification, "date");

  FrameForm transmitter = frame(form, "transmitter", "date_transmitter");
  transmit(transmitter, "manufacturer");
  choose(transmitter, cceTransmitter, "deviceType");
  transmit(transmitter, "sensorSerialNumber");
  transmit(transmitter, "universalCmdRevision", "universalCommandRevision");
  for (const char* parameter : {"transmitterCommandRevision", "swRevision", "hwRevision", "deviceCode", "finalAssemblyNumber"})
    transmit(transmitter, parameter);

  focusOn(cteTransmitter(0));
}

void VwInformationH::initialize() {
  View::initialize();
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cteIdentification(0).SetTextOption(true); });
}

}  // namespace ostrand
