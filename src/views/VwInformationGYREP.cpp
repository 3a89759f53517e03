#include "views/VwInformationGYREP.h"

#include "platform/trap/Procedure.h"

namespace ostrand {

VwInformationGYREP::VwInformationGYREP() : InformationView("VwInformationGYREP", "cdeIdentification") {}

void VwInformationGYREP::declare(Form& form) {
  FrameForm identification = frame(form, "identification", "date_identification");
  for (const char* parameter : {"sensorTag", "displayTag", "description", "message"}) identify(identification, parameter);
  identifyDate(identification, "deviceDate");

  FrameForm transmitter = frame(form, "transmitter", "date_transmitter");
  choose(transmitter, cceTransmitter.at(0), "manufacturer");
  choose(transmitter, cceTransmitter.at(1), "deviceType");
  for (const char* parameter :
       {"deviceCode", "finalAssemblyNumber", "sensorSerialNumber", "sensorHWRevision", "sensorSWRevision", "tcuSerialNumber", "tcuHWRevision",
        "tcuSWRevision", "fbiBoardSerialNumber", "fbiHardwareRevision", "fbiSoftwareRevision", "profileRevision", "deviceCertification"})
    transmit(transmitter, parameter);

  focusOn(cteTransmitter(0));
}

void VwInformationGYREP::initialize() {
  View::initialize();
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cteIdentification(1).SetTextOption(true); });
}

}  // namespace ostrand
