#pragma once

#include <string>
#include <string_view>

#include "host/DataSet.h"

namespace ostrand {

// A value that makes the device act as soon as it is written, and the only road on which it may leave.
enum class Acts {
  No,
  ByButton,  // by a button of its own
  ByPage,    // by applying its own page, after a question
};

// What the data set says of a parameter in its attribute `acts`, else what its name says.
Acts actsOf(const DataSet* dataSet, std::string_view parameter);

// What the name alone says.
Acts actsByName(std::string_view parameter);

// The word of a data set; nothing for one that there is not.
std::optional<Acts> actsOfWord(std::string_view word);

}  // namespace ostrand
