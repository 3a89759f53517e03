#include "platform/controls/Timer.h"

#include "platform/controls/Component.h"

namespace ostrand {

void Timer::start(double seconds) {
  stop();
  mOn = &desktop();
  mSeconds = seconds;
  mEnabled = true;
  mTimer = mOn->schedule(mSeconds, [this] { turn(); });
}

void Timer::stop() {
  if (mOn) mOn->cancel(mTimer);
  mOn = nullptr;
  mEnabled = false;
}

void Timer::turn() {
  const Ref<Component> pin(owner());
  mTimer = mOn->schedule(mSeconds, [this] { turn(); });
  Elapsed();
}

}  // namespace ostrand
