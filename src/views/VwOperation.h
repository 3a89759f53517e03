#pragma once

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrModuleSelection.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// PROFIBUS devices: the simulation of the measured value, and the selection of the function modules.
class VwOperation : public View {
 public:
  VwOperation();

  void PrepareToRelease() override;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void initialize() override;
  void resized() override;

 private:
  ControlArray<Label> lblSimulation{"lblSimulation"};
  ControlArray<CtrComboEdit> cceSimulation{"cceSimulation"};
  ControlArray<CtrTextEdit> cteSimulation{"cteSimulation"};
  Nested<CtrModuleSelection> CtrModuleSelection1{"CtrModuleSelection1"};
  Frame Frame2{"Frame2"};
};

}  // namespace ostrand
