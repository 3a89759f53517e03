#include "platform/desktop/TimerQueue.h"

#include <algorithm>

namespace ostrand {

TimerQueue::~TimerQueue() {
  while (!mTimers.empty()) mTimers.extract(mTimers.begin());
}

Desktop::TimerId TimerQueue::add(LocalTime due, std::function<void()> work) {
  mTimers.emplace(std::pair{due, ++mLast}, std::move(work));
  return mLast;
}

void TimerQueue::remove(Desktop::TimerId timer) {
  const auto entry = std::find_if(mTimers.begin(), mTimers.end(), [&](const auto& each) { return each.first.second == timer; });
  // It dies outside the queue: what it holds may cancel other timers.
  if (entry != mTimers.end()) mTimers.extract(entry);
}

void TimerQueue::runNext(Desktop& desktop) {
  const auto work = std::move(mTimers.extract(mTimers.begin()).mapped());
  try {
    work();
  } catch (...) {
    desktop.tellUnhandled(currentError());
  }
}

}  // namespace ostrand
