#pragma once

#include <string>
#include <vector>

#include "platform/controls/ChoiceEdit.h"

namespace ostrand {

// An enumeration without a display of its own: other controls show it and follow its event Change.
class CtrOptionEdit : public ChoiceEdit {
 public:
  using ChoiceEdit::ChoiceEdit;
  std::string_view className() const override { return "CtrOptionEdit"; }

  // What the controls that show it stand for. What may be sent is told by the choices of the data set alone.
  void SetOptionValues(std::vector<std::string> values);
  const std::vector<std::string>& optionValues() const { return mOptionValues; }

  // A text that code sets because another value was read: it counts as edited only where the one before it did.
  void follow(const std::string& key);

 protected:
  Kind ownKind() const override { return Kind::OptionEdit; }

 private:
  std::vector<std::string> mOptionValues;
};

}  // namespace ostrand
