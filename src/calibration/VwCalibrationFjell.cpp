#include "calibration/VwCalibrationFjell.h"

#include "bus/BusHart.h"
#include "core/Requests.h"
#include "core/SampleCheck.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

namespace {

constexpr int kRecipes = 4;

}  // namespace

// clang-format off
void VwCalibrationFjell::declare(Form& form) {
  frame(form, "laboratoryResults", "date_laboratoryResults")
      .row(lblLaboratoryResults.next(), "laboratoryValue1", cte_laboratoryResults.at(0), "ctr_laboratoryValue1")
      .row(lblLaboratoryResults.next(), "laboratoryValue2", cte_laboratoryResults.at(1), "ctr_laboratoryValue2")
      .row(lblLaboratoryResults.next(), "calibrationType",  cce_laboratoryResults.at(0), "ctr_calibrationType")
      .row(lblLaboratoryResults.next(), "laboratoryRecipe", cce_laboratoryResults.at(1), "ctr_laboratoryRecipe")
      .button(LabCalibrateBtn, "accept", "Accept");

  declareSampling(form);

  FrameForm recipes = frame(form, "recipes", "date_recipes");
  recipes.heads({{&lblRecipes.at(kRecipes),     "pulpType"},
                 {&lblRecipes.at(kRecipes + 1), "linearizationSlopeP1"},
                 {&lblRecipes.at(kRecipes + 2), "linearizationOffsetP2"}});
  for (int i = 0; i < kRecipes; ++i) {
    const std::string recipe = "recipe" + std::to_string(i + 1);
    recipes.row(lblRecipes.at(i), recipe, cce_pulpType.at(i), "ctr_" + recipe + "PulpType")
        .cell(cte_slope.at(i),  "ctr_" + recipe + "LinearizationSlopeP1")
        .cell(cte_offset.at(i), "ctr_" + recipe + "LinearizationOffsetP2");
  }
  recipes.button(recipeButton, "accept", "Accept");

  mFocusOn = {{"laboratoryResults", &cce_laboratoryResults(0)}, {"recipes", &cce_pulpType(0)}};
}
// clang-format on

void VwCalibrationFjell::initialize() {
  CalibrationView::initialize();
  // The device speaks HART alone: no data set is asked for its bus.
  mBus = Ref<IBusDependent>(new BusHart(desktop(), lastError()));
}

std::vector<CalibrationView::RecipeRow> VwCalibrationFjell::recipeRows() const {
  std::vector<RecipeRow> rows;
  for (int i = 0; i < kRecipes; ++i) rows.push_back({&cce_pulpType(i), {&cte_slope(i), &cte_offset(i)}});
  return rows;
}

void VwCalibrationFjell::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  proc.step([&] { modView::setOnlineData(*this, doc); });
  // What cannot be read is reported, and the check goes on without it.
  const auto read = [&](const Node& item) { return proc.value(0.0, [&] { return floatOf(item, desktop().locale()); }); };
  proc.step([&] { warnOfLargeDeviation(doc, "sample1", read, proc.messenger()); });
  proc.step([&] { warnOfLargeDeviation(doc, "sample2", read, proc.messenger()); });
  proc.step([&] { showWhenFinal(doc, "laboratoryResults", kCalibrated, proc.messenger()); });
}

bool VwCalibrationFjell::stopSample(BusProcedure& proc, int sample) {
  // Without the shear force that the strategy asks for too; nothing is tested.
  const std::string name = "sample" + std::to_string(sample);
  const std::string items =
      Requests::readItem(name + "Deviation", "noUnit", "floatVal") + Requests::readItem(name + "ConsistencyAverage", "%", "floatVal");
  proc.messenger().ReadRequest(Requests::document("sampling", "read", items), 0);
  return true;
}

}  // namespace ostrand
