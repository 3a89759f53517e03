#include "platform/controls/ParameterInfo.h"

#include <cstring>

#include "platform/base/NumberText.h"

namespace ostrand {

ParameterValues ParameterInfo::read(const Node& parameter) {
  name.clear();
  type.clear();
  unit = "noUnit";
  decimals.reset();
  min.reset();
  max.reset();
  readOnly = writeOnly = false;
  ParameterValues values;
  if (!parameter) return values;
  for (pugi::xml_attribute attribute = parameter.raw().first_attribute(); attribute; attribute = attribute.next_attribute()) {
    const std::string_view key = attribute.name();
    const std::string_view value = attribute.value();
    if (value.empty()) continue;
    switch (key.size() << 8 | static_cast<unsigned char>(key[0])) {
      case 4 << 8 | 'n':
        if (key == "name") name = value;
        break;
      case 4 << 8 | 't':
        if (key == "type") type = value;
        break;
      case 4 << 8 | 'u':
        if (key == "unit") unit = value;
        break;
      case 5 << 8 | 'v':
        if (key == "value") values.value = value;
        break;
      case 12 << 8 | 'o':
        if (key == "offlineValue") values.offlineValue = value;
        break;
      case 8 << 8 | 'd':
        if (key != "decimals") break;
        if (const auto count = parseInteger(value); count && *count >= 0 && *count <= 15) decimals = static_cast<int>(*count);
        break;
      case 6 << 8 | 'm':
        if (key == "minVal") min = parseNumber(value, '.');
        if (key == "maxVal") max = parseNumber(value, '.');
        break;
      case 6 << 8 | 'a': {
        if (key != "access") break;
        const bool reads = value.find("read") != value.npos;
        const bool writes = value.find("rite") != value.npos;  // "write" and "readWrite"
        readOnly = !writes;
        writeOnly = writes && !reads;
        break;
      }
      default: break;
    }
  }
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
