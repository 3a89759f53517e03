#pragma once

#include <vector>

#include "platform/controls/EditControl.h"
#include "platform/types/ITaviView.h"

namespace ostrand {

// The edits of a view, nested components included, that the user has changed and not yet applied. What the
// device lets nobody write is none of the user's, though a view may have emptied it.
std::vector<EditControl*> pendingEdits(ITaviView* view);

}  // namespace ostrand
