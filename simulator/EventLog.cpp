#include "simulator/EventLog.h"

#include <algorithm>

namespace ostrand::simulator {

namespace {

constexpr int kRows = 8;
constexpr double kHighestCount = 65535;

std::string rowName(EventLog::Kind kind, const char* what, int row) {
  const char* const list = kind == EventLog::Kind::Error ? "Error" : kind == EventLog::Kind::Warning ? "Warning" : "Info";
  return std::string("eventLog") + list + what + "0" + static_cast<char>('0' + row);
}

}  // namespace

void EventLog::count(Kind kind, std::string_view event) {
  int row = 1;
  for (; row < kRows; ++row) {
    const Parameter* const there = mTable.find(rowName(kind, "Event", row));
    if (there && (there->value.text.empty() || there->value.text == event)) break;
  }
  const Parameter* const place = mTable.find(rowName(kind, "Event", row));
  if (!place) return;
  const std::string counter = rowName(kind, "Count", row);
  const double before = place->value.text == event ? mTable.number(counter, 0) : 0;
  mTable.set(place->name, event);
  mTable.set(counter, std::min(before + 1, kHighestCount));
}

void EventLog::clear(Kind kind) {
  for (int row = 1; row <= kRows; ++row) {
    mTable.set(rowName(kind, "Event", row), "");
    mTable.set(rowName(kind, "Count", row), 0);
  }
}

void EventLog::follow(Kind kind, std::string_view event, bool condition) {
  if (!condition) {
    if (const auto present = mPresent.find(event); present != mPresent.end()) mPresent.erase(present);
  } else if (mPresent.emplace(event).second) {
    count(kind, event);
  }
}

}  // namespace ostrand::simulator
