#pragma once

#include "views/InformationView.h"

namespace ostrand {

// PROFIBUS blade transmitters of the second form: who the device is.
class VwInformationP2 : public InformationView {
 public:
  VwInformationP2();

 protected:
  void declare(Form& form) override;

 private:
  ControlArray<CtrComboEdit> cce_transmitter{"cce_transmitter"};
};

}  // namespace ostrand
