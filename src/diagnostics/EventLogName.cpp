#include "diagnostics/EventLogName.h"

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

bool holds(std::string_view name, std::string_view word) { return name.find(word) != name.npos; }

}  // namespace

int GetEventLogCategory(std::string_view name) { return holds(name, "Error") ? 0 : holds(name, "Warning") ? 1 : holds(name, "Info") ? 2 : -1; }

int GetEventLogKind(std::string_view name) { return holds(name, "Event") ? 0 : holds(name, "Count") ? 1 : -1; }

int GetEventLogRow(std::string_view name) {
  if (name.size() < 2) return -1;
  const std::string_view digits = name.substr(name.size() - 2);
  const auto row = parseInteger(digits);
  return row && *row >= 0 ? static_cast<int>(*row) : -1;
}

}  // namespace ostrand
