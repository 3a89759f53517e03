#include "diagnostics/EventLogTable.h"

#include "diagnostics/EventLogName.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

std::optional<EventLogTable::Cell> EventLogTable::cellOf(std::string_view name) {
  const Cell cell{GetEventLogKind(name), GetEventLogCategory(name), GetEventLogRow(name)};
  if (cell.kind < 0 || cell.category < 0 || cell.row < 0 || cell.row > kRows) return std::nullopt;
  if (cell.row == 0) throw RuntimeError(RuntimeError::OutOfRange, std::string(name) + " has no row");
  return cell;
}

void EventLogTable::build(const Document& dataSet) {
  for (const Node& node : dataSet.selectAll("//data:parameter[starts-with(@name, \"eventLog\")]")) {
    const std::string_view name = node.attribute("name");
    if (GetEventLogRow(name) == 0) continue;
    if (const auto cell = cellOf(name)) at(*cell) = node;
  }
}

void EventLogTable::write(const Cell& cell, const std::string& value) { at(cell).setAttribute("value", value); }

Node& EventLogTable::at(const Cell& cell) {
  return mNodes[static_cast<std::size_t>(cell.kind)][static_cast<std::size_t>(cell.category)][static_cast<std::size_t>(cell.row) - 1];
}

}  // namespace ostrand
