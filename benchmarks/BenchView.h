#pragma once

#include <string>

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand::bench {

// A view of any size in the mix of ours: of ten controls seven text edits, two combos with mappings, one
// date; and a date label to each frame of twenty. The parameters are spread over the data set.
class BenchView : public View {
 public:
  BenchView(int controls, int parameters) : View("BenchView", "bench"), mControls(controls), mParameters(parameters) {}

 protected:
  void declare(Form& form) override;

 private:
  int mControls;
  int mParameters;
  ControlArray<Label> lblValue{"lblValue"};
  ControlArray<CtrTextEdit> cteValue{"cteValue"};
  ControlArray<CtrComboEdit> cceValue{"cceValue"};
  ControlArray<CtrDateEdit> cdeValue{"cdeValue"};
};

// The same mix the classic way: the tags of the controls, for one path per lookup.
struct ClassicControl {
  std::string name;
  bool combo;
};

}  // namespace ostrand::bench
