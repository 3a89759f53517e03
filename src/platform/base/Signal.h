#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ostrand {

// Calls its listeners in the order in which they subscribed. Who joins during a call is called from the
// next one on; who leaves during a call is passed over.
template <class... Args>
class Signal {
 public:
  using Listener = std::function<void(Args...)>;
  using Id = std::size_t;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  ~Signal() {
    // What a listener holds may disconnect others when it dies.
    std::exchange(mSlots, {});
  }

  Id connect(Listener listener) {
    mSlots.push_back({++mLastId, std::make_shared<Listener>(std::move(listener))});
    return mLastId;
  }

  void disconnect(Id id) {
    const auto slot = std::find_if(mSlots.begin(), mSlots.end(), [&](const Slot& each) { return each.id == id; });
    if (slot == mSlots.end()) return;
    // It dies last, when what it holds may connect and disconnect again.
    const std::shared_ptr<Listener> leaving = std::move(slot->listener);
    if (mCalls == 0) mSlots.erase(slot);
  }

  bool hasListeners() const {
    return std::any_of(mSlots.begin(), mSlots.end(), [](const Slot& slot) { return slot.listener != nullptr; });
  }

  void operator()(Args... args) {
    if (mSlots.empty()) return;
    Call call(*this);
    for (std::size_t i = 0, count = mSlots.size(); i < count; ++i) {
      // The copy keeps the listener alive when it disconnects itself.
      if (std::shared_ptr<Listener> listener = mSlots[i].listener) (*listener)(args...);
    }
  }

 private:
  struct Slot {
    Id id;
    std::shared_ptr<Listener> listener;
  };
  struct Call {
    explicit Call(Signal& signal) : mSignal(signal) { ++mSignal.mCalls; }
    ~Call() {
      if (--mSignal.mCalls == 0) std::erase_if(mSignal.mSlots, [](const Slot& slot) { return !slot.listener; });
    }
    Signal& mSignal;
  };

  std::vector<Slot> mSlots;
  Id mLastId = 0;
  int mCalls = 0;
};

}  // namespace ostrand
