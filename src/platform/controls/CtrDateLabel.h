#pragma once

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

// The stamp of the last read of a request group; Tag "date_" + group.
class CtrDateLabel : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::string_view className() const override { return "CtrDateLabel"; }

 protected:
  Kind ownKind() const override { return Kind::DateLabel; }
};

}  // namespace ostrand
