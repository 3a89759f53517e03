#pragma once

#include <string>

namespace ostrand::bench {

// What the parameter of this number holds: of ten parameters six numbers, a text, a date and two choices.
enum class Content { Number, Text, Date, Choice };
Content contentOf(int parameter);
std::string nameOf(int parameter);
std::string groupOf(int parameter);

// A data set in the mix of ours: parameters with ten attributes, each in one request group, and a mapping
// for every second choice. The other choices look for a mapping under each tail of their name, and find none.
std::string dataSetText(int parameters);

// An answer with the first `items` parameters of that data set; another `salt` gives other values.
std::string answerText(int items, int salt);

}  // namespace ostrand::bench
