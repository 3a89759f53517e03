#pragma once

#include "platform/controls/ChoiceEdit.h"

namespace ostrand {

// One value from an enumeration, picked from a list that can be filtered.
class CtrComboEdit : public ChoiceEdit {
 public:
  using ChoiceEdit::ChoiceEdit;
  std::string_view className() const override { return "CtrComboEdit"; }

  // The filter of the choices; it comes into force with ApplyItemFilter. A value that is no longer offered
  // stays on the screen and is not correct.
  void SetAllItemsAllowed(bool allowed);
  void SetItemAllowed(const std::string& key, bool allowed);
  void ApplyItemFilter();

  // "Count" is the number of choices that are offered.
  Value get(std::string_view property, std::span<const int> indices) const override;

 protected:
  Kind ownKind() const override { return Kind::ComboEdit; }
};

}  // namespace ostrand
