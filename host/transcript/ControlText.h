#pragma once

#include <string>
#include <vector>

#include "platform/types/ITaviView.h"

namespace ostrand {

class Component;
class Control;

// The item of a component that is in front as text, one control a line, in the order of the tab key:
//
//   frmViews(0)               frame   "activeRecipe"
//   lblTitle(0)               label   "Active recipe"
//   ctrDateLabels(0)          stamp   "31.12.2025 23:59:59"
//   CtrFocusTransfer1         tab
//   lblActiveRecipe           label   "Select active recipe"
//   cceActiveRecipe           combo   "Softwood"                of 4, edited, focused
//   cmdActiveRecipeSetButton  button  "Accept"                  disabled
//   CtrFocusTransfer2         tab
//
// Columns: the name as transcripts call it; what the control is, in one word; what the user reads on it; its state. What the
// user reads is a caption, a value with its unit behind it, true or false, the position of a slider, the number of rows of
// a list, or how many marks and curves a chart shows and what it says in its middle. The state tells, in this order and where it is so: how many choices a combo offers, hidden, disabled, read
// only, held back (it is not collected with the host's changes), edited, wrong, the key of a failed read or write, focused.
// The controls of a nested component follow the line of its place.
std::vector<std::string> frontAsText(const Component& component);

// The items that a host can select: frames and nested views, in their order.
std::vector<Control*> selectableItems(const ControlCollection& controls);

}  // namespace ostrand
