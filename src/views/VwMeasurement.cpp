#include "views/VwMeasurement.h"

#include "bus/BusChoice.h"
#include "bus/BusProcedure.h"
#include "core/Requests.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

using modView::TabPosition;

// clang-format off
void VwMeasurement::declare(Form& form) {
  frame(form, "activeRecipe", "date_activeRecipe")
      .row(lblActiveRecipe, "selectActiveRecipe", cceActiveRecipe, "ctr_activeRecipe")
      .button(cmdActiveRecipeSetButton, "accept", "Accept");
  form.nested(CtrMonitoring1, "monitoringVariables");

  mFocusOn = {{"activeRecipe", &cceActiveRecipe}, {"monitoringVariables", &CtrMonitoring1}};
}
// clang-format on

VwMeasurement::VwMeasurement() : View("VwMeasurement", "measurement") {}

void VwMeasurement::connect() {
  cmdActiveRecipeSetButton.Click.connect([this] { cmdActiveRecipeSetButton_Click(); });
  cceActiveRecipe.LostFocus.connect([this] { leaveByTab("cceActiveRecipe_LostFocus", TabPosition::First); });
  cmdActiveRecipeSetButton.LostFocus.connect([this] { leaveByTab("cmdActiveRecipeSetButton_LostFocus", TabPosition::Last); });
}

void VwMeasurement::initialize() {
  View::initialize();
  // The button writes this value; the host's collection must not write it once more.
  Procedure proc(*this, "UserControl_Initialize");
  proc.step([&] { cceActiveRecipe.KeepLocal(true); });
}

void VwMeasurement::clear() {
  mBus = nullptr;
  View::clear();
}

void VwMeasurement::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  chooseBus(proc, *this, "VwMeasurement", doc, mBus);
  proc.step([&] { modView::setOfflineData(*this, doc); });
}

void VwMeasurement::SetOnlineData(const Document& doc) {
  BusProcedure proc(*this, "ITaviDataUser_setOnlineData", mBus);
  // The channel's number is meant for no edit.
  proc.step([&] {
    if (const Node channel = itemAnywhere(doc, "mChannel")) channel.remove();
  });
  proc.step([&] { modView::setOnlineData(*this, doc); });
  proc.step([&] {
    if (!proc.bus()->MeasurementSetOnlineData(doc, proc.pinnedMessenger())) proc.reportLastError();
  });
}

void VwMeasurement::ViewSetCommunicationMode(int mode) {
  Procedure proc(*this, "mMessenger_ViewSetCommunicationMode");
  followMode(proc, mode, cmdActiveRecipeSetButton);
}

void VwMeasurement::cmdActiveRecipeSetButton_Click() {
  BusProcedure proc(*this, "cmdActiveRecipeSetButton_Click", mBus);
  bool correct = false;
  if (!proc.step([&] { correct = cceActiveRecipe.Correct(); })) return;
  if (!correct) {
    proc.step([&] { proc.messenger().ShowMessage("informationError", "pleaseCheckTheValues"); });
    return;
  }
  const std::string item = proc.value(std::string(), [&] { return cceActiveRecipe.GetXmlItem(true).xml(); });
  proc.step([&] { container().DTMGUIDownload(Requests::fragment("activeRecipe", "write", item), "activeRecipe", 1); });
  proc.step([&] {
    if (!proc.bus()->SetActiveRecipe(proc.pinnedMessenger())) proc.reportLastError();
  });
}

}  // namespace ostrand
