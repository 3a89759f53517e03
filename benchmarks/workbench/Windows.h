#pragma once

#include "benchmarks/Work.h"

namespace ostrand::bench {

// Opens the recipes, the page with the most fields, in the workbench's window: from the user's choice in the tree until it is
// painted. The view is made anew each time.
Work openRecipes();
// The same fields by hand: plain widgets, laid out in a grid and filled, in a window with the same style.
Work openRecipesByHand();

// From nothing until the first page is painted, each time in a process of its own: the mill with its simulated devices, and a bare
// window with the fields above.
Work start();
Work startByHand();
// In such a process: makes the window, and ends with it. Elsewhere it does nothing.
void startIfAsked();

// The list of what waits to be written, with 500 values.
Work openWaitingList();

// An answer to a view of 60 controls, 20 of them on the screen, from its text until it is painted.
Work showAnswer(int items);
// The same by hand: the text read by pugixml, each item written into the field of its name.
Work showAnswerByHand(int items);

}  // namespace ostrand::bench
