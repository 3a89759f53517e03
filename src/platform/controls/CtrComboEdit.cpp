#include "platform/controls/CtrComboEdit.h"

#include <algorithm>

namespace ostrand {

void CtrComboEdit::SetAllItemsAllowed(bool allowed) {
  if (probe()) announce("SetAllItemsAllowed", allowed ? " true" : " false");
  for (Choice& choice : mChoices) choice.allowed = allowed;
}

void CtrComboEdit::SetItemAllowed(const std::string& key, bool allowed) {
  if (probe()) announce("SetItemAllowed", " " + inQuotes(key) + (allowed ? " true" : " false"));
  for (Choice& choice : mChoices)
    if (choice.key == key) choice.allowed = allowed;
}

void CtrComboEdit::ApplyItemFilter() {
  announce("ApplyItemFilter");
  for (Choice& choice : mChoices) choice.offered = choice.allowed;
  changedNow();
  recheck();
}

Value CtrComboEdit::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Count")
    return static_cast<int>(std::count_if(mChoices.begin(), mChoices.end(), [](const Choice& choice) { return choice.offered; }));
  return ChoiceEdit::get(property, indices);
}

}  // namespace ostrand
