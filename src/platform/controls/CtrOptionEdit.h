#pragma once

#include "platform/controls/ChoiceEdit.h"

namespace ostrand {

// An enumeration without a display of its own: other controls show it and follow its event Change.
class CtrOptionEdit : public ChoiceEdit {
 public:
  using ChoiceEdit::ChoiceEdit;
  std::string_view className() const override { return "CtrOptionEdit"; }

 protected:
  Kind ownKind() const override { return Kind::OptionEdit; }
};

}  // namespace ostrand
