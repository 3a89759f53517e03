#pragma once

#include "calibration/CalibrationView.h"

namespace ostrand {

// Blade transmitters on either bus: eight recipes with filler.
class VwCalibration : public CalibrationView {
 public:
  VwCalibration() : CalibrationView("cmdRecipeApplyButton") {}

  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;
  // A blade type chosen elsewhere restricts the pulp types.
  void ViewReceiveValue(const std::string& tag, const std::string& value) override;

 protected:
  void declare(Form& form) override;
  bool afterLaboratoryResults(BusProcedure& proc) override;
  bool afterRecipes(BusProcedure& proc) override;
  std::vector<RecipeRow> recipeRows() const override;

 private:
  ControlArray<CtrComboEdit> ccePulpType{"ccePulpType"};
  ControlArray<CtrTextEdit> cteFiller{"cteFiller"};
  ControlArray<CtrTextEdit> cteSlope{"cteSlope"};
  ControlArray<CtrTextEdit> cteOffset{"cteOffset"};
};

}  // namespace ostrand
