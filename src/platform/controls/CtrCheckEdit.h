#pragma once

#include "platform/controls/ChoiceEdit.h"

namespace ostrand {

// A boolean value as a box: off is the choice of value 0, on the other one; without a mapping "0" and "1".
class CtrCheckEdit : public ChoiceEdit {
 public:
  using ChoiceEdit::ChoiceEdit;
  std::string_view className() const override { return "CtrCheckEdit"; }

  bool Value() const;
  // The user's click; error 70 if the box cannot be reached.
  void click();

  ostrand::Value get(std::string_view property, std::span<const int> indices) const override;

 protected:
  Kind ownKind() const override { return Kind::CheckEdit; }

 private:
  bool isOn() const;
  std::string keyFor(bool on) const;
};

}  // namespace ostrand
