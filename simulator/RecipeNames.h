#pragma once

#include <algorithm>
#include <string>

namespace ostrand::simulator {

// Whatever stands in the memory, it is a number of a recipe, if only of one that does not exist.
inline int recipeOf(double number) { return static_cast<int>(std::clamp(number, 0.0, 99.0)); }

// The names of parameters that there are several of.
inline std::string recipeName(int recipe, const char* what) { return "recipe" + std::to_string(recipe) + what; }
inline std::string sampleName(int sample, const char* what) { return "sample" + std::to_string(sample) + what; }

}  // namespace ostrand::simulator
