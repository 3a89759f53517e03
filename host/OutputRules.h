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
  double free;     // an answer up to this says that the output is free
  bool canBeRead;  // the device tells it when it is asked; of the others only the answer to a write says anything
};

// nullptr for an item that forces nothing.
const OutputRule* outputRule(std::string_view item);

enum class OutputValue { Forces, Frees, NoNumber };
// What a value does when it is asked for: 0 alone frees an output.
OutputValue requestedValue(std::string_view text);
// What a value that the device has answered says.
OutputValue answeredValue(const OutputRule& rule, std::string_view text);

}  // namespace ostrand
