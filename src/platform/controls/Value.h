#pragma once

#include <string>
#include <variant>

namespace ostrand {

// A property of a control, for those who know it by name only.
using Value = std::variant<bool, int, std::string>;

// As a transcript writes it: true, 42, "text".
std::string toText(const Value& value);
std::string inQuotes(const std::string& text);

// The readings that a setter wants; a value of another kind throws RuntimeError 13.
bool asBool(const Value& value);
int asInt(const Value& value);
const std::string& asText(const Value& value);

}  // namespace ostrand
