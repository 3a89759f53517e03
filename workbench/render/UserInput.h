#pragma once

#include <string>

namespace ostrand {

class EditControl;

// What the user does to a control, as a transcript tells it: the command, and what stands behind the control's name. Empty for
// what no transcript tells.
struct UserInput {
  std::string command;    // "click", "type"
  std::string arguments;  // "\"4.2\""

  // What comes to the same as taking back an edit, which is no command of its own.
  static UserInput restoring(const EditControl& edit);
};

}  // namespace ostrand
