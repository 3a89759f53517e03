#include "platform/desktop/TimerQueue.h"

namespace ostrand {

Desktop::TimerId TimerQueue::add(LocalTime due, std::function<void()> work) {
  mTimers.emplace(std::pair{due, ++mLast}, std::move(work));
  return mLast;
}

void TimerQueue::remove(Desktop::TimerId timer) {
  std::erase_if(mTimers, [&](const auto& entry) { return entry.first.second == timer; });
}

void TimerQueue::runNext() {
  const auto work = std::move(mTimers.extract(mTimers.begin()).mapped());
  work();
}

}  // namespace ostrand
