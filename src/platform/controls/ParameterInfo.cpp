#include "platform/controls/ParameterInfo.h"

#include <cstring>

#include "platform/base/NumberText.h"

namespace ostrand {

void ParameterInfo::read(const Node& parameter) {
  name.clear();
  type.clear();
  unit = "noUnit";
  decimals.reset();
  min.reset();
  max.reset();
  readOnly = writeOnly = false;
  if (!parameter) return;
  // One pass: a search for each attribute would walk the list eight times.
  for (pugi::xml_attribute attribute : parameter.raw().attributes()) {
    const std::string_view key = attribute.name();
    const std::string_view value = attribute.value();
    if (key == "name") {
      name = value;
    } else if (key == "type") {
      type = value;
    } else if (key == "unit") {
      if (!value.empty()) unit = value;
    } else if (key == "decimals") {
      if (const auto count = parseInteger(value); count && *count >= 0 && *count <= 15) decimals = static_cast<int>(*count);
    } else if (key == "minVal") {
      min = parseNumber(value, '.');
    } else if (key == "maxVal") {
      max = parseNumber(value, '.');
    } else if (key == "access") {
      const bool reads = value.find("read") != value.npos;
      const bool writes = value.find("rite") != value.npos;  // "write" and "readWrite"
      readOnly = !value.empty() && !writes;
      writeOnly = writes && !reads;
    }
  }
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
