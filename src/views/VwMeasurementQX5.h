#pragma once

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrOptionEdit.h"

namespace ostrand {

// The optical transmitter: the live values, and the active grade as radio buttons over an edit that is not
// shown as such.
class VwMeasurementQX5 : public View {
 public:
  VwMeasurementQX5();

 protected:
  void declare(Form& form) override;
  void connect() override;

 private:
  void coeActiveGrade_Change(const std::string& text);
  void optActiveGrade_Click(int index);

  PictureBox picOptions{"picOptions"};
  CtrOptionEdit coeActiveGrade{"coeActiveGrade"};
  ControlArray<OptionButton> optActiveGrade{"optActiveGrade"};
  Label lblActiveGrade{"lblActiveGrade"};
  CtrComboEdit cceActiveGrade{"cceActiveGrade"};
  Nested<CtrMonitoring> CtrMonitoring1{"CtrMonitoring1"};
};

}  // namespace ostrand
