#include "views/VwOperation.h"

#include <algorithm>

#include "platform/trap/Procedure.h"

namespace ostrand {

using modView::TabPosition;

// clang-format off
void VwOperation::declare(Form& form) {
  // The function block's modes stand below, but have the first indices.
  frame(form, "simulation", "date_simulation")
      .row(lblSimulation.next(), "simulation",        cceSimulation.at(2), "ctr_simulation")
      .row(lblSimulation.next(), "simulationValue",   cteSimulation.at(0), "ctr_simulationValue")
      .row(lblSimulation.next(), "simulationQuality", cceSimulation.at(3), "ctr_simulationQuality")
      .row(lblSimulation.next(), "simulationLimit",   cceSimulation.at(4), "ctr_simulationLimit")
      .row(lblSimulation.next(), "targetMode",        cceSimulation.at(0), "ctr_targetMode")
      .row(lblSimulation.next(), "actualMode",        cceSimulation.at(1), "ctr_actualMode");

  // The key stands on a frame within the frame; what the host selects is the panel on it.
  FrameForm modules = form.frame(frmViews.next(), "");
  form.fill(Frame2, "moduleSelection");
  modules.title(lblTitle.next(), "moduleSelection").stamp(ctrDateLabels.next(), "date_moduleSelection");
  form.nested(CtrModuleSelection1, "moduleSelection");

  mFocusOn = {{"simulation", &cceSimulation(0)}, {"moduleSelection", &CtrModuleSelection1}};
}
// clang-format on

VwOperation::VwOperation() : View("VwOperation", "operation") {}

void VwOperation::connect() {
  cceSimulation(0).LostFocus.connect([this] { leaveByTab("cceSimulation_LostFocus", TabPosition::First); });
  cceSimulation(cceSimulation.size() - 1).LostFocus.connect([this] { leaveByTab("cceSimulation_LostFocus", TabPosition::Last); });
}

void VwOperation::initialize() {
  View::initialize();
  std::erase(mViews, &frmViews(1));

  // The panel has no stamp of its own.
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { ctrDateLabels(1).Visible(false); });
}

void VwOperation::resized() {
  View::resized();
  Procedure proc(*this, "UserControl_Resize");
  proc.step([&] { CtrModuleSelection1.Move(0, 0, width(), height()); });
}

void VwOperation::PrepareToRelease() {
  // Reports of this procedure bear two blanks; logs are searched for them.
  Procedure proc(*this, " ITaviView_PrepareToRelease");
  proc.step([&] { clear(); });
}

}  // namespace ostrand
