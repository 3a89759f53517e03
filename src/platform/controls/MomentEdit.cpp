#include "platform/controls/MomentEdit.h"

#include "platform/controls/Component.h"

namespace ostrand {

std::string MomentEdit::shown(const std::string& documentText) const {
  LocalTime moment;
  return readMoment(documentText, moment) ? screenForm(moment) : documentText;
}

std::optional<std::string> MomentEdit::told() const { return mTyped ? mTyped : mStored; }

bool MomentEdit::passes() const {
  LocalTime moment;
  const std::string& text = mTyped ? *mTyped : mStored;
  return text.empty() || readMoment(text, moment);
}

void MomentEdit::takeTyped(const std::string& text, bool byUser) {
  LocalTime moment;
  mTyped = readMoment(text, moment) ? documentForm(moment) : text;
  std::string screen = shown(*mTyped);
  const bool modified = byUser && screen != shown(mStored);
  if (byUser && !modified) mTyped.reset();
  update(std::move(screen), modified);
}

void MomentEdit::takeText(const std::string& text) { takeTyped(text, false); }

void MomentEdit::type(const std::string& text) {
  requireEditable();
  const Ref<Component> pin(owner());
  takeTyped(text, true);
}

void MomentEdit::unitsChanged() {
  if (owner()) update(shown(mTyped ? *mTyped : mStored), mModified);
}

}  // namespace ostrand
