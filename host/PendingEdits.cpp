#include "host/PendingEdits.h"

namespace ostrand {

namespace {

void collect(ITaviView& view, std::vector<EditControl*>& edits) {
  for (Control* const control : view.GetControls()) {
    if (auto* const edit = dynamic_cast<EditControl*>(control); edit && edit->Modified() && !edit->info().readOnly) edits.push_back(edit);
    if (ITaviView* const nested = control->view(); nested && nested != &view) collect(*nested, edits);
  }
}

}  // namespace

std::vector<EditControl*> pendingEdits(ITaviView* view) {
  std::vector<EditControl*> edits;
  if (view) collect(*view, edits);
  return edits;
}

}  // namespace ostrand
