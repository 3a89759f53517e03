#pragma once

#include <optional>
#include <string_view>

namespace ostrand {

// The categories of self-monitoring of field devices (NAMUR NE 107), the better one first.
enum class Ne107 { Good, Maintenance, OutOfSpecification, FunctionCheck, Failure };

// The key of the text table, also the word in a data set's mapping; and the letter of the symbol, blank for Good.
std::string_view keyOf(Ne107 category);
char letterOf(Ne107 category);
std::optional<Ne107> ne107Of(std::string_view key);

}  // namespace ostrand
