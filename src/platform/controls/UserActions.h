#pragma once

#include <string>

#include "platform/base/RuntimeError.h"

namespace ostrand {

// What a user can do to a control that has no such action of its own kind: to a chart, or to a component that stands for one
// control. A control, or the component nested in it, implements what it takes. Error 438 for what it does not take, 70 with
// the reason while the user cannot reach it.
class UserActions {
 public:
  virtual void click() { notTaken("click"); }
  // Types and leaves.
  virtual void type(const std::string&) { notTaken("type"); }
  virtual void choose(const std::string& /*key*/) { notTaken("choose"); }
  // A click, or a double click, on a point of a chart, as the chart counts them.
  virtual void hotspot(int /*series*/, int /*point*/, bool /*twice*/) { notTaken("hotspot"); }
  // The second mouse button.
  virtual void menu() { notTaken("menu"); }

 protected:
  ~UserActions() = default;

 private:
  [[noreturn]] static void notTaken(const char* action) {
    throw RuntimeError(RuntimeError::NoSuchMember, std::string("it does not take the action ") + action);
  }
};

}  // namespace ostrand
