#include "platform/controls/ChoiceEdit.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

// The filter outlives a new reading of the same choices.
void ChoiceEdit::takeMappings(const Node& mapping) {
  if (mChoices.read(mapping)) changedNow();
}

std::string ChoiceEdit::shown(const std::string& documentText) const {
  const Choice* const choice = mChoices.byValue(documentText);
  return choice ? choice->key : documentText;
}

std::optional<std::string> ChoiceEdit::told() const {
  if (!mModified) return stored();
  const Choice* const choice = mChoices.byKey(mText);
  return choice ? choice->value : mText;
}

bool ChoiceEdit::passes() const {
  if (mChoices.empty()) return !mText.empty();
  const Choice* const choice = mChoices.byKey(mText);
  return choice && choice->offered;
}

void ChoiceEdit::takeText(const std::string& text) { pick(text); }

void ChoiceEdit::pick(const std::string& key) { update(key, key != storedText()); }

void ChoiceEdit::choose(const std::string& key) {
  requireEditable();
  const Choice* const choice = mChoices.byKey(key);
  if (!mChoices.empty() && (!choice || !choice->offered)) throw RuntimeError(RuntimeError::BadArgument, name() + " does not offer " + inQuotes(key));
  pick(key);
}

std::string ChoiceEdit::label(const std::string& key) const {
  const Ref<ITextTable> texts = textTable();
  return texts && !key.empty() ? texts->GetLabel(std::string(key)) : key;
}

}  // namespace ostrand
