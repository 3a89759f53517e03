#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/types/Messenger.h"

namespace ostrand {

// The position of a control in the tab order of its view, for the tab step.
enum class TabPosition { First = 0, Last = 1, Only = 2 };

// A control has lost the focus: if the tab key took it over the view's edge, the host moves it on.
void tabStep(Desktop& desktop, Messenger& messenger, TabPosition position);

}  // namespace ostrand
