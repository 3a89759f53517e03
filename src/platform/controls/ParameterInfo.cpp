#include "platform/controls/ParameterInfo.h"

#include <cstring>
#include <utility>

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

// Whether a name is this one. A call for each attribute of each parameter would cost more than what it compares.
template <std::size_t N>
bool is(const char* name, const char (&wanted)[N]) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) { return ((name[I] == wanted[I]) && ...); }
  (std::make_index_sequence<N>());
}

}  // namespace

ParameterValues ParameterInfo::read(const Node& parameter) {
  decimals.reset();
  min.reset();
  max.reset();
  readOnly = writeOnly = false;
  ParameterValues values;
  const char *itsType = "", *itsUnit = "noUnit";
  for (pugi::xml_attribute attribute = parameter.raw().first_attribute(); attribute; attribute = attribute.next_attribute()) {
    const char* const key = attribute.name();
    const char* const value = attribute.value();
    if (!*value) continue;
    switch (*key) {
      case 't':
        if (is(key, "type")) itsType = value;
        break;
      case 'u':
        if (is(key, "unit")) itsUnit = value;
        break;
      case 'v':
        if (is(key, "value")) values.value = value;
        break;
      case 'o':
        if (is(key, "offlineValue")) values.offlineValue = value;
        break;
      case 'd':
        if (!is(key, "decimals")) break;
        if (const auto count = parseInteger(value); count && *count >= 0 && *count <= 15) decimals = static_cast<int>(*count);
        break;
      case 'm':
        if (is(key, "minVal")) min = parseNumber(value, '.');
        if (is(key, "maxVal")) max = parseNumber(value, '.');
        break;
      case 'a':
        if (is(key, "access") && !is(value, "readWrite")) {
          const bool reads = std::strstr(value, "read");
          const bool writes = std::strstr(value, "rite");  // "write" and "readWrite"
          readOnly = !writes;
          writeOnly = writes && !reads;
        }
        break;
      default: break;
    }
  }
  type = itsType;
  unit = itsUnit;
  return values;
}

std::string ParameterInfo::wireType() const {
  if (isInteger()) return "integerVal";
  if (isFloat()) return "floatVal";
  return type.empty() ? "stringVal" : type;
}

Node valueElement(const Node& item, std::string_view type) {
  const pugi::xml_node raw = item.raw();
  for (pugi::xml_node child : raw.children()) {
    const char* const name = child.name();
    if (std::strncmp(name, "comm:", 5) == 0 && type == name + 5) return {item.tree(), child};
  }
  return item.firstChild();
}

}  // namespace ostrand
