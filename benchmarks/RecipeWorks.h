#pragma once

#include "benchmarks/Works.h"

namespace ostrand::bench {

// The items of a recipe control's editors, each a value of a sample.
inline constexpr int kRecipeItems = 204;

// The first walk of the GYRE transmitter's data set with so many recipe controls, which draw their curves on the way; reading
// does not count. By pugixml the reading of the same text, and no more.
Work recipeWalk(By by, int controls);

// The newest 17 records of a recipe: the answer that tells how many there are, and two answers for each, reading included, until
// the chart has all of them. Painting is not in it.
Work recipeHistory();

}  // namespace ostrand::bench
