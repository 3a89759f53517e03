#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/xml/Node.h"

namespace ostrand {

// The values in a data:parameter element; good until the element changes.
struct ParameterValues {
  std::string_view value;
  std::string_view offlineValue;
};

// What a data:parameter element says of a value, apart from the value itself and its name. Limits and unit are those of
// the data set.
struct ParameterInfo {
  std::string type;
  std::string unit = "noUnit";
  std::optional<int> decimals;
  std::optional<double> min;
  std::optional<double> max;
  bool readOnly = false;
  bool writeOnly = false;

  bool isNumeric() const { return isInteger() || isFloat(); }
  bool isInteger() const { return type.starts_with("int"); }
  bool isFloat() const { return type.starts_with("float"); }
  // The name of the value element in a request.
  std::string wireType() const;
  // Percentages never convert, and what has no unit cannot.
  bool hasConvertibleUnit() const { return !unit.empty() && unit != "noUnit" && unit.find('%') == unit.npos; }

  // An empty node gives an empty description. Limits that are no number count as absent. The values are
  // found on the way: a search for each attribute would walk the list ten times.
  ParameterValues read(const Node& parameter);
};

// The value element of a comm:item: `comm:` + type if it is there, else the first element inside; empty if none.
Node valueElement(const Node& item, std::string_view type);

}  // namespace ostrand
