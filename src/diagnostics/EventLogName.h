#pragma once

#include <string_view>

namespace ostrand {

// A parameter of an event log is called "eventLog", a category, a kind and a row of two digits:
// "eventLogErrorEvent01". Each part is -1 when nothing fits.
int GetEventLogCategory(std::string_view name);  // 0 Error, 1 Warning, 2 Info
int GetEventLogKind(std::string_view name);      // 0 Event, 1 Count
int GetEventLogRow(std::string_view name);       // from 1, as it stands in the name

}  // namespace ostrand
