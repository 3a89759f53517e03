#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "host/Request.h"
#include "platform/desktop/Desktop.h"
#include "simulator/Device.h"

namespace ostrand {

// Requests on their way to one device: in order, one under way at a time. A stop goes before all others that wait, and takes
// the place of those of them that are about the same. A device that falls silent in the middle of a request is given up after
// a few of its transaction times, and the next request goes out. Answers that come when nobody waits for them any more are
// dropped and told as stray.
class RequestQueue {
 public:
  // Told in this order for each request: sent, for each answer arrived and answered, finished; a cancelled or withdrawn one is
  // finished only. Any of them may submit, cancel and connect another device, and may take long, for views may ask the user:
  // so the next request goes out between `arrived` and `answered` of a last answer, and before a cancelled one is told.
  struct Events {
    std::function<void(const Request&)> sent;
    std::function<void(const Request&, const Document& answer)> arrived;
    std::function<void(const Request&, const Document& answer)> answered;
    std::function<void(const Request&, Outcome)> finished;
    std::function<void(const Document& answer)> stray;
  };

  // The desktop must outlive the queue.
  RequestQueue(Desktop& desktop, Events events) : mDesktop(desktop), mEvents(std::move(events)) {}
  RequestQueue(const RequestQueue&) = delete;
  RequestQueue& operator=(const RequestQueue&) = delete;
  ~RequestQueue();

  // Takes the place of the device before; what was for that one is cancelled. A stop that has not been answered is put again
  // to the new device, and waits while there is none.
  void connect(std::unique_ptr<Device> device);
  Device* device() const { return mDevice.get(); }

  // Error 91 without a device.
  void submit(Request request);
  // Takes back those that have not been sent yet, but for stops.
  void cancelWaiting();

  const Request* underWay() const { return mCurrent ? &*mCurrent : nullptr; }
  std::size_t waiting() const { return mWaiting.size(); }
  bool idle() const { return !mCurrent && mWaiting.empty(); }

 private:
  // Takes them out of those that wait; whoever does it tells that they are finished, when the rest is in order.
  std::vector<Request> takeOut(const std::function<bool(const Request&)>& which);
  void tellFinished(const std::vector<Request>& requests, Outcome outcome);
  void sendNext();
  void take(int id, const Document& answer);
  void finish(Outcome outcome);
  void restartSilence();
  void stopSilence();

  Desktop& mDesktop;
  Events mEvents;
  std::unique_ptr<Device> mDevice;
  std::deque<Request> mWaiting;
  std::optional<Request> mCurrent;
  std::optional<Desktop::TimerId> mSilence;
};

}  // namespace ostrand
