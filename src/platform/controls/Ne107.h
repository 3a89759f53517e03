#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/xml/Document.h"

namespace ostrand {

// The categories of self-monitoring of field devices (NAMUR NE 107), the better one first.
enum class Ne107 { Good, Maintenance, OutOfSpecification, FunctionCheck, Failure };

// The key of the text table, also the word in a data set's mapping; and the letter of the symbol, blank for Good.
std::string_view keyOf(Ne107 category);
char letterOf(Ne107 category);
std::optional<Ne107> ne107Of(std::string_view key);
// What a status bit means when it is raised, by its mapping: the category of the item with another value than 0. Nothing where
// the mapping names none, and for an empty node.
std::optional<Ne107> ne107OfRaised(const Node& mapping);

// All but Good, the most important first. Who shows one of several may hold another order.
const std::vector<Ne107>& ne107Order();
// That of these which comes first in the order; Good if none does.
Ne107 foremost(const std::vector<Ne107>& inForce, const std::vector<Ne107>& order);

}  // namespace ostrand
