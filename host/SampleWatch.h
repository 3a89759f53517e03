#pragma once

#include <map>
#include <optional>

#include "host/Actions.h"
#include "host/HostObserver.h"
#include "platform/base/Signal.h"

namespace ostrand {

// Knows the sample that the device may be taking: from the moment when a start is sent until the device has completed a stop,
// or says by itself that none is running. A view that is made anew knows nothing of it.
class SampleWatch : private HostObserver {
 public:
  // The observers must outlive it.
  explicit SampleWatch(Observers& observers) : mObservers(observers) { mObservers.add(*this); }
  ~SampleWatch() { mObservers.remove(*this); }
  SampleWatch(const SampleWatch&) = delete;
  SampleWatch& operator=(const SampleWatch&) = delete;

  const std::optional<RunningSample>& running() const { return mRunning; }
  // Also one whose start has been accepted and not been sent yet.
  std::optional<RunningSample> runningOrWaiting() const { return mWaiting.empty() ? mRunning : mWaiting.rbegin()->second; }

  Signal<> changed;

 private:
  void requestQueued(const Request& request) override;
  void requestSent(const Request& request) override;
  void requestFinished(const Request& request, Outcome outcome) override;
  void requestAnswered(const Request& request, const Document& answer) override;

  void set(std::optional<RunningSample> running);

  Observers& mObservers;
  std::optional<RunningSample> mRunning;
  std::map<int, RunningSample> mWaiting;  // by the number of the request that will start it
  // What was running before a start that has not been answered, and that start.
  std::optional<RunningSample> mBefore;
  int mStart = 0;
};

}  // namespace ostrand
