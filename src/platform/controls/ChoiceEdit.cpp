#include "platform/controls/ChoiceEdit.h"

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

const ChoiceEdit::Choice* ChoiceEdit::byKey(const std::string& key) const {
  for (const Choice& choice : mChoices)
    if (choice.key == key) return &choice;
  return nullptr;
}

const ChoiceEdit::Choice* ChoiceEdit::byValue(const std::string& value) const {
  for (const Choice& choice : mChoices)
    if (choice.value == value) return &choice;
  // A device may tell "2.0" for what the data set calls "2".
  if (const auto number = parseNumber(value, '.'))
    for (const Choice& choice : mChoices)
      if (parseNumber(choice.value, '.') == number) return &choice;
  return nullptr;
}

void ChoiceEdit::takeMappings(const Node& mapping) {
  std::vector<Choice> before = std::move(mChoices);
  mChoices.clear();
  if (mapping)
    for (Node entry = mapping.firstChild(); entry; entry = entry.nextSibling())
      if (entry.name() == "data:mappedItem")
        mChoices.push_back({std::string(entry.findAttribute("value").value_or("")), std::string(entry.findAttribute("key").value_or(""))});
  // The filter outlives a new reading of the same choices.
  bool same = before.size() == mChoices.size();
  for (std::size_t i = 0; same && i < before.size(); ++i) same = before[i].value == mChoices[i].value && before[i].key == mChoices[i].key;
  if (same)
    mChoices = std::move(before);
  else
    changedNow();
}

std::string ChoiceEdit::shown(const std::string& documentText) const {
  const Choice* const choice = byValue(documentText);
  return choice ? choice->key : documentText;
}

std::optional<std::string> ChoiceEdit::told() const {
  if (!mModified) return mStored;
  const Choice* const choice = byKey(mText);
  return choice ? choice->value : mText;
}

bool ChoiceEdit::passes() const {
  if (mChoices.empty()) return !mText.empty();
  const Choice* const choice = byKey(mText);
  return choice && choice->offered;
}

void ChoiceEdit::takeText(const std::string& text) { pick(text); }

void ChoiceEdit::pick(const std::string& key) { update(key, key != shown(mStored)); }

void ChoiceEdit::choose(const std::string& key) {
  requireEditable();
  const Choice* const choice = byKey(key);
  if (!mChoices.empty() && (!choice || !choice->offered)) throw RuntimeError(RuntimeError::BadArgument, name() + " does not offer " + inQuotes(key));
  pick(key);
}

std::string ChoiceEdit::label(const std::string& key) const {
  const Ref<ITextTable> texts = textTable();
  return texts && !key.empty() ? texts->GetLabel(std::string(key)) : key;
}

}  // namespace ostrand
