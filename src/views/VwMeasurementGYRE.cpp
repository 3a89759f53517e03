#include "views/VwMeasurementGYRE.h"

#include "core/Requests.h"
#include "platform/trap/Procedure.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

// clang-format off
void VwMeasurementGYRE::declare(Form& form) {
  frame(form, "activeRecipe", "date_activeRecipe")
      .row(lblActiveRecipe, "selectActiveRecipe", cceActiveRecipe, "ctr_activeRecipe");
  form.nested(CtrMonitoring1, "monitoringVariables");

  mFocusOn = {{"activeRecipe", &cceActiveRecipe}, {"monitoringVariables", &CtrMonitoring1}};
}
// clang-format on

VwMeasurementGYRE::VwMeasurementGYRE() : View("VwMeasurementGYRE", "measurement") {}

void VwMeasurementGYRE::connect() {
  cceActiveRecipe.LostFocus.connect([this] { leaveByTab("cceActiveRecipe_LostFocus", modView::TabPosition::Only); });
}

void VwMeasurementGYRE::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  proc.step([&] { modView::setOnlineData(*this, doc); });

  const Node answer = proc.value(Node(), [&] { return responseAnywhere(doc); });
  const std::string name = proc.value(std::string(), [&] { return std::string(answer.attribute("name")); });
  const std::string access = proc.value(std::string(), [&] { return std::string(answer.attribute("access")); });
  if (name.find("activeRecipe") == name.npos || (access != "write" && name != "activeRecipeStatus")) return;

  const Node calibrated = proc.value(Node(), [&] { return item(doc, "activeRecipeCalibrated"); });
  if (!calibrated) {
    const std::string request =
        Requests::document("activeRecipeStatus", "read", Requests::readItem("activeRecipeCalibrated", "noUnit", "integerVal"));
    constexpr int kLogData = 68;  // "D"
    proc.step([&] { proc.messenger().Log(kLogData, "Sending " + request); });
    proc.step([&] { proc.messenger().SendRequestWithStatus(request, "reading", 2, 1); });
  } else {
    proc.step([&] {
      if (calibrated.text() == "0") proc.messenger().ShowMessage(cceActiveRecipe.Text(), "actionStatusRecipeNotCalibrated");
    });
  }
}

}  // namespace ostrand
