#pragma once

#include <string>
#include <vector>

#include "support/FakeCalls.h"
#include "platform/controls/Control.h"

namespace ostrand::test {

// Writes down what passes the probe: "ctl.Move 1 2 3 4", "ctl.Tag = \"x\"", "ctl.Tag?". Told to fail by the
// same names as the lines begin with ("ctl.Move", "ctl.Tag =", "ctl.Tag?").
class RecordingProbe : public ControlProbe {
 public:
  FakeCalls calls;
  bool readings = false;  // recorded too

  void operation(Control& control, std::string_view name, const std::string& arguments) override {
    const std::string call = control.name() + "." + std::string(name);
    calls.arrive(call, call + arguments);
  }
  void setting(Control& control, std::string_view property, const std::string& value) override {
    const std::string call = control.name() + "." + std::string(property) + " =";
    calls.arrive(call, call + " " + value);
  }
  void reading(Control& control, std::string_view property) override {
    const std::string call = control.name() + "." + std::string(property) + "?";
    calls.arrive(call, readings ? call : std::string());
  }
};

}  // namespace ostrand::test
