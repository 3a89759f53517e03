#include "platform/controls/TabStep.h"

namespace ostrand {

void tabStep(Desktop& desktop, Messenger& messenger, TabPosition position) {
  if (!desktop.keyDown(Desktop::Key::Tab)) return;
  const bool backwards = desktop.keyDown(Desktop::Key::Shift);
  if (position == TabPosition::Only || (position == TabPosition::Last) != backwards) messenger.FocusOut();
}

}  // namespace ostrand
