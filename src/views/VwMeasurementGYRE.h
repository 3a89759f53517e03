#pragma once

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrMonitoring.h"

namespace ostrand {

// GYRE transmitters: as for the blade transmitters without a button; after each write of the recipe the
// view asks whether the new recipe is calibrated, and warns if it is not.
class VwMeasurementGYRE : public View {
 public:
  VwMeasurementGYRE();

  void SetOnlineData(const Document& doc) override;

 protected:
  void declare(Form& form) override;
  void connect() override;

 private:
  Label lblActiveRecipe{"lblActiveRecipe"};
  CtrComboEdit cceActiveRecipe{"cceActiveRecipe"};
  Nested<CtrMonitoring> CtrMonitoring1{"CtrMonitoring1"};
};

}  // namespace ostrand
