#include "platform/controls/Value.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

std::string inQuotes(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default: out += c;
    }
  }
  return out + '"';
}

std::string toText(const Value& value) {
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
  if (const int* number = std::get_if<int>(&value)) return std::to_string(*number);
  return inQuotes(std::get<std::string>(value));
}

namespace {

[[noreturn]] void wrongKind(const Value& value, const char* wanted) {
  throw RuntimeError(RuntimeError::NotConvertible, toText(value) + " is no " + wanted);
}

}  // namespace

bool asBool(const Value& value) {
  if (const bool* flag = std::get_if<bool>(&value)) return *flag;
  if (const int* number = std::get_if<int>(&value)) return *number != 0;
  wrongKind(value, "true or false");
}

int asInt(const Value& value) {
  if (const int* number = std::get_if<int>(&value)) return *number;
  wrongKind(value, "number");
}

const std::string& asText(const Value& value) {
  if (const std::string* text = std::get_if<std::string>(&value)) return *text;
  wrongKind(value, "text");
}

}  // namespace ostrand
