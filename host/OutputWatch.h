#pragma once

#include <map>
#include <string>

#include "host/HostObserver.h"
#include "platform/base/Signal.h"

namespace ostrand {

// Knows whether a loop test may still drive an output of the device: from the moment when a test value is sent until the device
// has answered 0 for it, whatever the views tell, and whether or not they are still there. A device with several channels is
// driven as long as one of them may be.
class OutputWatch : private HostObserver {
 public:
  // The observers must outlive it.
  explicit OutputWatch(Observers& observers);
  ~OutputWatch();

  bool mayBeForced() const { return !mForced.empty(); }

  Signal<> changed;

 private:
  void requestSent(const Request& request) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void requestFinished(const Request& request, Outcome outcome) override;

  Observers& mObservers;
  // The request that asked for it first, by the name of the item; 0 once the device has confirmed it.
  std::map<std::string, int> mForced;
};

}  // namespace ostrand
