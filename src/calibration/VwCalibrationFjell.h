#pragma once

#include "calibration/CalibrationView.h"

namespace ostrand {

// The low-consistency blade transmitter: four recipes without filler, HART only. Its stop of a sample and
// its check of the answers are its own.
class VwCalibrationFjell : public CalibrationView {
 public:
  VwCalibrationFjell() : CalibrationView("RecipeApplyButton") {}

  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void initialize() override;
  bool stopSample(BusProcedure& proc, int sample) override;
  std::vector<RecipeRow> recipeRows() const override;

 private:
  ControlArray<CtrComboEdit> cce_pulpType{"cce_pulpType"};
  ControlArray<CtrTextEdit> cte_slope{"cte_slope"};
  ControlArray<CtrTextEdit> cte_offset{"cte_offset"};
};

}  // namespace ostrand
