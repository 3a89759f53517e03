#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/base/RuntimeError.h"
#include "platform/types/MessengerEvents.h"

namespace ostrand {

// Who listens to a Messenger. They are called in the order in which they subscribed, over a snapshot, passing over those
// that have left meanwhile.
class MessengerListeners {
 public:
  void add(MessengerEvents& listener) { mListeners.push_back({&listener, ++mLastId}); }
  void remove(MessengerEvents& listener) {
    std::erase_if(mListeners, [&](const Listener& each) { return each.events == &listener; });
  }
  bool empty() const { return mListeners.empty(); }

  // `unhandled` is told, in the catch block, what leaves a handler; the next listener hears the event all the same.
  template <class Handler, class Unhandled>
  void each(Handler handler, Unhandled unhandled) const {
    const auto snapshot = mListeners;
    for (const Listener& listener : snapshot) {
      if (std::none_of(mListeners.begin(), mListeners.end(), [&](const Listener& each) { return each.id == listener.id; })) continue;
      try {
        handler(*listener.events);
      } catch (...) {
        unhandled(currentError());
      }
    }
  }

 private:
  struct Listener {
    MessengerEvents* events;
    std::size_t id;
  };
  std::vector<Listener> mListeners;
  std::size_t mLastId = 0;
};

}  // namespace ostrand
