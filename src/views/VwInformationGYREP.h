#pragma once

#include "views/InformationView.h"

namespace ostrand {

// PROFIBUS GYRE transmitters: who the device is. Selection and resizing work on its frames directly.
class VwInformationGYREP : public InformationView {
 public:
  VwInformationGYREP();

 protected:
  void declare(Form& form) override;
  void initialize() override;

 private:
  ControlArray<CtrComboEdit> cceTransmitter{"cceTransmitter"};
};

}  // namespace ostrand
