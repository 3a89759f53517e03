#include "views/VwInformationQX5.h"

#include "platform/trap/Procedure.h"

namespace ostrand {

VwInformationQX5::VwInformationQX5() : InformationView("VwInformationHollinQX5", "CtrDateEdit1") {}

void VwInformationQX5::declare(Form& form) {
  FrameForm identification = frame(form, "identification", "date_identification");
  for (const char* parameter : {"tag", "description", "message"}) identify(identification, parameter);
  identifyDate(identification, "date");
  identify(identification, "longTag");

  FrameForm transmitter = frame(form, "transmitter", "date_transmitter");
  transmit(transmitter, "manufacturer");
  choose(transmitter, cceTransmitter, "deviceType");
  transmit(transmitter, "sensorSerialNumber");
  transmit(transmitter, "universalCmdRevision", "universalCommandRevision");
  for (const char* parameter : {"transmitterCommandRevision", "swRevision", "hwRevision", "finalAssemblyNumber"}) transmit(transmitter, parameter);

  focusOn(cteTransmitter(0));
}

void VwInformationQX5::initialize() {
  View::initialize();
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cteIdentification(0).SetTextOption(true); });
}

}  // namespace ostrand
