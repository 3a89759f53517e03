#include "platform/controls/MomentEdit.h"

#include "platform/controls/Component.h"

namespace ostrand {

std::string MomentEdit::shown(const std::string& documentText) const {
  LocalTime moment;
  return readDocument(documentText, moment) ? screenForm(moment) : documentText;
}

std::optional<std::string> MomentEdit::told() const { return mTyped ? mTyped->text : stored(); }

bool MomentEdit::passes() const {
  if (mTyped) return mTyped->readable || mTyped->text.empty();
  LocalTime moment;
  return stored().empty() || readDocument(stored(), moment);
}

void MomentEdit::takeTyped(const std::string& text, bool byUser) {
  LocalTime moment;
  const bool readable = readScreen(text, moment);
  mTyped = Typed{readable ? documentForm(moment) : text, readable};
  std::string screen = typedOnScreen();
  const bool edited = (byUser || (mModified && !text.empty())) && screen != storedText();
  if (byUser && !edited) mTyped.reset();
  update(std::move(screen), edited);
}

void MomentEdit::takeText(const std::string& text) { takeTyped(text, false); }

void MomentEdit::type(const std::string& text) {
  requireEditable();
  const Ref<Component> pin(owner());
  takeTyped(text, true);
}

void MomentEdit::unitsChanged() {
  if (owner()) update(mTyped ? typedOnScreen() : storedText(), mModified);
}

}  // namespace ostrand
