#pragma once

#include "views/InformationView.h"

namespace ostrand {

// HART blade transmitters: who the device is.
class VwInformationH : public InformationView {
 public:
  VwInformationH();

 protected:
  void declare(Form& form) override;
  void initialize() override;

 private:
  CtrComboEdit cceTransmitter{"cceTransmitter"};
};

}  // namespace ostrand
