#pragma once

#include <functional>
#include <map>
#include <utility>

#include "platform/desktop/Desktop.h"

namespace ostrand {

// Work that waits for its time; equal times run in the order in which they were scheduled.
class TimerQueue {
 public:
  TimerQueue() = default;
  TimerQueue(const TimerQueue&) = delete;
  TimerQueue& operator=(const TimerQueue&) = delete;
  ~TimerQueue();
  Desktop::TimerId add(LocalTime due, std::function<void()> work);
  void remove(Desktop::TimerId timer);
  bool empty() const { return mTimers.empty(); }
  // When the first one is due; only if there is one.
  LocalTime nextDue() const { return mTimers.begin()->first.first; }
  // Takes the first one out and runs it; its error goes to those who listen to the desktop.
  void runNext(Desktop& desktop);

 private:
  std::map<std::pair<LocalTime, Desktop::TimerId>, std::function<void()>> mTimers;
  Desktop::TimerId mLast = 0;
};

}  // namespace ostrand
