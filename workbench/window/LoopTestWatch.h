#pragma once

#include <map>
#include <string>

#include "host/Host.h"
#include "platform/base/Signal.h"

namespace ostrand {

// Knows whether a loop test may still drive an output of the device: from the moment when a test value is sent until the device
// has answered 0 for it, whatever the views tell, and whether or not they are still there. A device with several channels is
// driven as long as one of them may be.
class LoopTestWatch : private HostObserver {
 public:
  // The host must outlive it.
  explicit LoopTestWatch(Host& host);
  ~LoopTestWatch();

  bool mayBeDriving() const { return !mDriven.empty(); }

  Signal<> changed;

 private:
  void requestSent(const Request& request) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void requestFinished(const Request& request, Outcome outcome) override;

  Host& mHost;
  // The request that asked for it first, by the name of the item; 0 once the device has confirmed it.
  std::map<std::string, int> mDriven;
};

}  // namespace ostrand
