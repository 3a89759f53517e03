#include "calibration/VwCalibration.h"

#include "bus/BusChoice.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

namespace {

constexpr int kRecipes = 8;

// The relations file; one that cannot be loaded is passed over in silence.
Document relations(const std::string& folder) {
  try {
    return Document::readFile(folder + "Relations_ostrand.xml");
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace

// clang-format off
void VwCalibration::declare(Form& form) {
  frame(form, "laboratoryResults", "date_laboratoryResults")
      .row(lblLaboratoryResults.next(), "sampleFiller",     cte_laboratoryResults.at(0), "ctr_sampleFiller")
      .row(lblLaboratoryResults.next(), "laboratoryValue1", cte_laboratoryResults.at(1), "ctr_laboratoryValue1")
      .row(lblLaboratoryResults.next(), "laboratoryValue2", cte_laboratoryResults.at(2), "ctr_laboratoryValue2")
      .row(lblLaboratoryResults.next(), "calibrationType",  cce_laboratoryResults.at(0), "ctr_calibrationType")
      .row(lblLaboratoryResults.next(), "laboratoryRecipe", cce_laboratoryResults.at(1), "ctr_laboratoryRecipe")
      .button(LabCalibrateBtn, "accept", "Accept");

  declareSampling(form);

  FrameForm recipes = frame(form, "recipes", "date_recipes");
  recipes.heads({{&lblRecipes.at(kRecipes),     "pulpType"},
                 {&lblRecipes.at(kRecipes + 1), "filler"},
                 {&lblRecipes.at(kRecipes + 2), "linearizationSlopeP1"},
                 {&lblRecipes.at(kRecipes + 3), "linearizationOffsetP2"}});
  for (int i = 0; i < kRecipes; ++i) {
    const std::string recipe = "recipe" + std::to_string(i + 1);
    recipes.row(lblRecipes.at(i), recipe, ccePulpType.at(i), "ctr_" + recipe + "PulpType")
        .cell(cteFiller.at(i), "ctr_" + recipe + "Filler")
        .cell(cteSlope.at(i),  "ctr_" + recipe + "LinearizationSlopeP1")
        .cell(cteOffset.at(i), "ctr_" + recipe + "LinearizationOffsetP2");
  }
  recipes.button(recipeButton, "accept", "Accept");

  mFocusOn = {{"laboratoryResults", &cce_laboratoryResults(0)}, {"recipes", &ccePulpType(0)}};
}
// clang-format on

std::vector<CalibrationView::RecipeRow> VwCalibration::recipeRows() const {
  std::vector<RecipeRow> rows;
  for (int i = 0; i < kRecipes; ++i) rows.push_back({&ccePulpType(i), {&cteFiller(i), &cteSlope(i), &cteOffset(i)}});
  return rows;
}

void VwCalibration::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  chooseBus(proc, *this, "VwCalibration", doc, mBus);
  proc.step([&] { modView::setOfflineData(*this, doc); });
}

void VwCalibration::SetOnlineData(const Document& doc) {
  BusProcedure proc(*this, "ITaviDataUser_setOnlineData", mBus);
  // The values stand on the screen before a warning comes.
  proc.step([&] { modView::setOnlineData(*this, doc); });
  proc.step([&] { proc.bus()->CalibrationSetOnlineData(doc, proc.pinnedMessenger()); });
}

bool VwCalibration::afterLaboratoryResults(BusProcedure& proc) { return proc.bus()->LaboratoryResultsApply(proc.pinnedMessenger()); }

bool VwCalibration::afterRecipes(BusProcedure& proc) { return proc.bus()->RecipesApply(proc.pinnedMessenger()); }

void VwCalibration::ViewReceiveValue(const std::string& tag, const std::string& value) {
  if (tag != "ctr_bladeType") return;
  Procedure proc(*this, "mMessenger_ViewReceiveValue");
  const std::string folder = proc.value(std::string(), [&] { return container().DTMGUIGetXmlPath(); });
  const Document file = relations(folder);
  const Node bladeType = file ? proc.value(Node(), [&] { return file.select("//bladeType[@name=\"" + value + "\"]"); }) : Node();
  if (!bladeType) return;
  ccePulpType.each([&](int, CtrComboEdit& combo) { proc.step([&] { combo.SetAllItemsAllowed(false); }); });
  for (Node allowed = bladeType.firstChild(); allowed; allowed = allowed.nextSibling()) {
    const auto name = allowed.findAttribute("name");
    if (!name) continue;
    ccePulpType.each([&](int, CtrComboEdit& combo) { proc.step([&] { combo.SetItemAllowed(std::string(*name), true); }); });
  }
  ccePulpType.each([&](int, CtrComboEdit& combo) { proc.step([&] { combo.ApplyItemFilter(); }); });
}

}  // namespace ostrand
