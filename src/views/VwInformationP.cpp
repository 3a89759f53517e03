#include "views/VwInformationP.h"

namespace ostrand {

VwInformationP::VwInformationP() : InformationView("VwInformationP", "CtrDateEdit1") {}

void VwInformationP::declare(Form& form) {
  FrameForm identification = frame(form, "identification", "date_identification");
  for (const char* parameter : {"tag", "description", "message"}) identify(identification, parameter);
  identifyDate(identification, "deviceDate");

  FrameForm transmitter = frame(form, "transmitter", "date_transmitter");
  transmit(transmitter, "manufacturer");
  choose(transmitter, cce_transmitter.at(0), "deviceType");
  for (const char* parameter :
       {"sensorSerialNumber", "fbiHardwareRevision", "fbiSoftwareRevision", "swRevision", "hwRevision", "profileRevision", "deviceCertification"})
    transmit(transmitter, parameter);

  focusOn(cteTransmitter(0));
}

}  // namespace ostrand
