#include "views/VwInformationP2.h"

namespace ostrand {

VwInformationP2::VwInformationP2() : InformationView("VwInformationP2", "CtrDateEdit1") {}

void VwInformationP2::declare(Form& form) {
  FrameForm identification = frame(form, "identification", "date_identification");
  for (const char* parameter : {"sensorTag", "displayTag", "description", "message"}) identify(identification, parameter);
  identifyDate(identification, "deviceDate");

  FrameForm transmitter = frame(form, "transmitter", "date_transmitter");
  transmit(transmitter, "manufacturer");
  choose(transmitter, cce_transmitter.at(0), "deviceType");
  for (const char* parameter : {"sensorSerialNumber", "fbiHardwareRevision", "fbiSoftwareRevision", "swRevision", "hwRevision", "profileRevision",
                                "deviceCertification", "fbiBoardSerialNumber"})
    transmit(transmitter, parameter);

  focusOn(cteTransmitter(0));
}

}  // namespace ostrand
