#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// Raises Elapsed again and again while it is enabled. Not to be seen.
class Timer : public Control {
 public:
  explicit Timer(std::string name) : Control(std::move(name)) {
    mVisible = false;
    mEnabled = false;
  }
  ~Timer() override { stop(); }
  std::string_view className() const override { return "Timer"; }

  Signal<> Elapsed;

  // Seconds between two turns; starts at once, and again when it runs already.
  void start(double seconds);
  void stop();
  void detach() override { stop(); }

 protected:
  Kind ownKind() const override { return Kind::NoData; }

 private:
  void turn();
  double mSeconds = 0;
  Desktop* mOn = nullptr;
  Desktop::TimerId mTimer = 0;
};

}  // namespace ostrand
