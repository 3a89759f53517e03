#pragma once

#include <string_view>

namespace ostrand {

// What holds an output of the device away from what it measures.
enum class OutputKind { LoopTest, Simulation, Trim };

// One item whose value forces an output, and the value that frees it again.
struct OutputRule {
  std::string_view item;  // the name, or a tail of it if `isTail`
  bool isTail;
  OutputKind kind;
  double free;       // values up to this free the output
  bool canBeRead;    // the device tells it when it is asked; of the others only the answer to a write says anything
};

// nullptr for an item that forces nothing.
const OutputRule* outputRule(std::string_view item);

enum class OutputValue { Forces, Frees, NoNumber };
OutputValue outputValue(const OutputRule& rule, std::string_view text);

}  // namespace ostrand
