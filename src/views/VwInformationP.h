#pragma once

#include "views/InformationView.h"

namespace ostrand {

// PROFIBUS blade transmitters: who the device is.
class VwInformationP : public InformationView {
 public:
  VwInformationP();

 protected:
  void declare(Form& form) override;

 private:
  ControlArray<CtrComboEdit> cce_transmitter{"cce_transmitter"};
};

}  // namespace ostrand
