#pragma once

#include <deque>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xml/Document.h"

namespace ostrand::simulator {

// The number of a value that the device does not have.
inline constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

struct Value {
  double number = kNothing;
  std::string text;  // of a text parameter
};

struct Parameter {
  enum class Type { Integer, Float, Text };
  struct Code {
    std::string value, key;
  };

  std::string name;
  Type type = Type::Text;
  std::string unit;
  bool readable = true;
  bool writable = false;
  bool mayBeEmpty = false;  // a float without a value is an empty text
  std::optional<double> lowest, highest;
  std::vector<Code> codes;  // empty if any number will do
  Value value;

  std::string_view element() const;  // "comm:integerVal", "comm:floatVal" or "comm:stringVal"
  // As it stands in a document: a float with six significant digits, or "NaN", or empty.
  std::string text(const Value& value) const;
  // What a code stands for; empty for a number without one.
  std::string_view key(const Value& value) const;
};

// The memory of a transmitter: the parameters and read groups of a data set. Pointers stay good while the table lives.
class ParameterTable {
 public:
  explicit ParameterTable(const Document& dataSet);
  ParameterTable(const ParameterTable&) = delete;
  ParameterTable& operator=(const ParameterTable&) = delete;

  // What the device has beside its data set; one of a name that is there already is passed over.
  void add(Parameter parameter);

  Parameter* find(std::string_view name);
  const Parameter* find(std::string_view name) const;
  // What a read of the group asks for; empty for a group that does not exist.
  std::vector<std::string> group(std::string_view name) const;

  // Of a parameter that the data set does not have: the fallback, an empty text, nothing done.
  double number(std::string_view name, double fallback = kNothing) const;
  std::string_view key(std::string_view name) const;
  void set(std::string_view name, double number);
  void set(std::string_view name, std::string_view text);
  // The code that stands for a key; nothing done if there is none.
  void setKey(std::string_view name, std::string_view key);

  // All values at once, to put them back.
  using Values = std::vector<Value>;
  Values values() const;
  void restore(const Values& values);

 private:
  std::deque<Parameter> mParameters;
  std::unordered_map<std::string_view, Parameter*> mByName;
  std::map<std::string, std::vector<std::string>, std::less<>> mGroups;
};

}  // namespace ostrand::simulator
