#pragma once

#include <string>
#include <vector>

#include "bus/BusProcedure.h"
#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// What the two views of a laboratory calibration share: two samples, of which one at a time may run, the
// laboratory's results, and the recipes. They compute nothing: the device does.
//
// The visibility of the four sample buttons is the whole state of the sampling: the two of a sample stand on
// one place, and a sample runs while its Stop button is visible. While the bus works on it neither is.
// Both views report under the name VwCalibration.
class CalibrationView : public View {
 public:
  bool LeaveSelectedView() override;
  void RequestFocus() override;
  void ViewSetCommunicationMode(int mode) override;

 protected:
  enum ButtonIndex { Take = 0, Stop = 1 };
  // A row of the recipes' table; the text edits in the order of the request.
  struct RecipeRow {
    CtrComboEdit* pulpType;
    std::vector<CtrTextEdit*> texts;
  };

  CalibrationView(std::string recipeButtonName);

  void declareSampling(Form& form);
  void connect() override;
  void initialize() override;
  void messengerTaken(Procedure& proc) override;
  void clear() override;

  // What a view does by itself. The first two answer whether the step was carried out.
  virtual bool startSample(BusProcedure& proc, int sample);
  virtual bool stopSample(BusProcedure& proc, int sample);
  // After the write of the results, of the recipes; True if there is nothing to do.
  virtual bool afterLaboratoryResults(BusProcedure& proc) { return (void)proc, true; }
  virtual bool afterRecipes(BusProcedure& proc) { return (void)proc, true; }
  virtual std::vector<RecipeRow> recipeRows() const = 0;

  ControlArray<CommandButton> Sample1Button{"Sample1Button"};
  ControlArray<CommandButton> Sample2Button{"Sample2Button"};
  ControlArray<CtrTextEdit> cte_sampling{"cte_sampling"};
  ControlArray<Label> lblSampling{"lblSampling"};
  ControlArray<CtrTextEdit> cte_laboratoryResults{"cte_laboratoryResults"};
  ControlArray<CtrComboEdit> cce_laboratoryResults{"cce_laboratoryResults"};
  ControlArray<Label> lblLaboratoryResults{"lblLaboratoryResults"};
  CommandButton LabCalibrateBtn{"LabCalibrateBtn"};
  ControlArray<Label> lblRecipes{"lblRecipes"};
  CommandButton recipeButton;

  Ref<IBusDependent> mBus;

 private:
  void sampleClick(int sample, ButtonIndex index);
  void carryOut(BusProcedure& proc, int sample, ButtonIndex index);
  void clearSample(int sample);
  void notifyStatus(const std::string& key);
  void cce_laboratoryResults_Change(CtrComboEdit& combo, const std::string& text);
  void LabCalibrateBtn_Click();
  void recipeButton_Click();
  void sendValues(const std::vector<EditControl*>& controls, const std::string& requestName);
  void sendRecipes();

  std::string mRecipeClick;  // the procedure's name in reports
};

}  // namespace ostrand
