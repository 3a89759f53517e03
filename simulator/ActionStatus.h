#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/Transmitter.h"

namespace ostrand::simulator {

// How a transmitter on PROFIBUS tells what became of the last action: a bit for each thing that may be wrong, and one for
// nothing. A refusal raises what it is about, and also one of the bits that are looked at after such a write: whoever looks
// at nothing else must not take it for a success.
class ActionStatus {
 public:
  // Adds the bits to the table, all 0 before the first action.
  explicit ActionStatus(ParameterTable& table);

  static std::vector<std::string> names();

  // As before the first action.
  void clear();
  void record(std::string_view command, const Judgement& judgement);

 private:
  ParameterTable& mTable;
};

}  // namespace ostrand::simulator
