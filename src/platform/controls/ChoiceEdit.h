#pragma once

#include <string>

#include "platform/controls/Choices.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

// What the edits of an enumeration share. `Text` is the key of the choice; on the wire and in the data set
// stands its value. Without a mapping the raw text passes for both.
class ChoiceEdit : public EditControl {
 public:
  // Nothing is chosen at first, which is not correct.
  explicit ChoiceEdit(std::string name) : EditControl(std::move(name)) { mCorrect = false; }

  // The user picks a choice by its key; error 5 if it is not offered, 70 if the edit cannot be reached.
  void choose(const std::string& key);

  const Choices& choices() const { return mChoices; }
  // A choice in the user's language.
  std::string label(const std::string& key) const;
  std::string displayText() const override { return label(mText); }

 protected:
  void takeMappings(const Node& mapping) override;
  std::string shown(const std::string& documentText) const override;
  std::optional<std::string> told() const override;
  bool passes() const override;
  void takeText(const std::string& text) override;
  // A choice made by code counts as one made by the user.
  void pick(const std::string& key);

  Choices mChoices;
};

}  // namespace ostrand
