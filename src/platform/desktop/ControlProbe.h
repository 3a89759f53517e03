#pragma once

#include <string>
#include <string_view>

namespace ostrand {

class Control;

// Hears of everything that a view does to its controls, before it happens. May throw RuntimeError: then it
// does not happen, and the view sees a failing control.
class ControlProbe {
 public:
  // `arguments` is the text of a trace line behind the operation's name, with a leading blank if not empty.
  virtual void operation(Control& control, std::string_view name, const std::string& arguments) = 0;
  virtual void setting(Control& control, std::string_view property, const std::string& value) = 0;
  virtual void reading(Control& control, std::string_view property) = 0;

 protected:
  ~ControlProbe() = default;
};

}  // namespace ostrand
