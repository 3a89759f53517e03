#pragma once

#include "views/InformationView.h"

namespace ostrand {

// The optical transmitter: who the device is. Its reports bear an older name of the class.
class VwInformationQX5 : public InformationView {
 public:
  VwInformationQX5();

 protected:
  void declare(Form& form) override;
  void initialize() override;

 private:
  CtrComboEdit cceTransmitter{"cceTransmitter"};
};

}  // namespace ostrand
