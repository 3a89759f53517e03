#include "workbench/render/UserInput.h"

#include "platform/controls/EditControl.h"

namespace ostrand {

UserInput UserInput::restoring(const EditControl& edit) {
  switch (edit.kind()) {
    case Control::Kind::ComboEdit: return {"choose", inQuotes(edit.storedText())};
    case Control::Kind::CheckEdit: return {"click", {}};
    default: return {"type", inQuotes(edit.storedText())};
  }
}

}  // namespace ostrand
