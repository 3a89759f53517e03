#pragma once

#include "bus/IBusDependent.h"
#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrMonitoring.h"

namespace ostrand {

// Blade transmitters: the live values, and the active recipe, which a button writes.
class VwMeasurement : public View {
 public:
  VwMeasurement();

  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;
  void ViewSetCommunicationMode(int mode) override;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void initialize() override;
  void messengerTaken(Procedure& proc) override { enableByLevel(proc, cmdActiveRecipeSetButton); }
  void clear() override;

 private:
  void cmdActiveRecipeSetButton_Click();

  Label lblActiveRecipe{"lblActiveRecipe"};
  CtrComboEdit cceActiveRecipe{"cceActiveRecipe"};
  CommandButton cmdActiveRecipeSetButton{"cmdActiveRecipeSetButton"};
  Nested<CtrMonitoring> CtrMonitoring1{"CtrMonitoring1"};

  Ref<IBusDependent> mBus;
};

}  // namespace ostrand
