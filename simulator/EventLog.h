#pragma once

#include <set>
#include <string>
#include <string_view>

#include "simulator/ParameterTable.h"

namespace ostrand::simulator {

// The event lists in a transmitter's memory: rows of parameters such as eventLogErrorEvent01 and eventLogErrorCount01.
class EventLog {
 public:
  enum class Kind { Error, Warning, Info };

  explicit EventLog(ParameterTable& table) : mTable(table) {}

  // One more of this event; the first takes the first free row, or in a full list the last one.
  void count(Kind kind, std::string_view event);
  // An empty list. What is present now is not counted again before it comes back.
  void clear(Kind kind);
  // Whatever is present begins anew, as after power has come back.
  void forget() { mPresent.clear(); }
  // Counts the event when the condition begins.
  void follow(Kind kind, std::string_view event, bool condition);

 private:
  ParameterTable& mTable;
  std::set<std::string, std::less<>> mPresent;
};

}  // namespace ostrand::simulator
