#pragma once

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand::bench {

// A view of any size in the mix of ours: of ten controls seven text edits, two combos, one date; and a date
// label to each frame of twenty. Its parameters are spread over a data set of that many, from `first` on.
class BenchView : public View {
 public:
  BenchView(int controls, int parameters, int first = 0) : View("BenchView", "bench"), mControls(controls), mParameters(parameters), mFirst(first) {}

 protected:
  void declare(Form& form) override;

 private:
  Control& nextControl(int i);
  int parameterOf(int i) const;

  int mControls;
  int mParameters;
  int mFirst;
  ControlArray<Label> lblValue{"lblValue"};
  ControlArray<CtrTextEdit> cteValue{"cteValue"};
  ControlArray<CtrComboEdit> cceValue{"cceValue"};
  ControlArray<CtrDateEdit> cdeValue{"cdeValue"};
};

}  // namespace ostrand::bench
