#include "host/RequestQueue.h"

#include <algorithm>
#include <vector>

#include "host/Messages.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

bool isStop(const Request& request) { return request.action.effect == Effect::Stops; }

// Whether a stop ends a request that waits: a write about the same, that is not itself a stop.
bool ends(const Request& stop, const Request& waiting) {
  const auto shared = [&](const std::string& each) { return stop.action.about.contains(each); };
  return !isStop(waiting) && std::any_of(waiting.action.about.begin(), waiting.action.about.end(), shared);
}

// How long a device may be silent: more transactions than the bus tries, and a moment.
double patience(const Device& device) { return 5 * device.busTimePerTransaction() + 1; }

int countItems(const Document& answer) {
  int count = 0;
  if (headOf(answer).valid)
    for (Node item = answer.root().child("comm:communicationResponse").firstChild(); item; item = item.nextSibling()) ++count;
  return count;
}

}  // namespace

RequestQueue::~RequestQueue() { stopSilence(); }

void RequestQueue::connect(std::unique_ptr<Device> device) {
  stopSilence();
  // The old device lives until what it answered last has been handled.
  const std::unique_ptr<Device> before = std::exchange(mDevice, std::move(device));
  if (before) before->cancelAll();
  cancelWaiting();
  if (mCurrent && isStop(*mCurrent)) {
    mCurrent->answers = mCurrent->itemsDone = 0;
    mWaiting.push_front(*std::exchange(mCurrent, std::nullopt));
  }
  if (mCurrent)
    finish(Outcome::Cancelled);
  else
    sendNext();
}

void RequestQueue::submit(Request request) {
  if (!mDevice) throwNothingThere("the device");
  if (isStop(request)) {
    cancel([stop = request](const Request& waiting) { return ends(stop, waiting); });
    mWaiting.insert(std::find_if_not(mWaiting.begin(), mWaiting.end(), isStop), std::move(request));
  } else {
    mWaiting.push_back(std::move(request));
  }
  if (!mCurrent) sendNext();
}

void RequestQueue::cancelWaiting() {
  cancel([](const Request& waiting) { return !isStop(waiting); });
}

void RequestQueue::cancel(const std::function<bool(const Request&)>& which) {
  const auto first = std::stable_partition(mWaiting.begin(), mWaiting.end(), [&](const Request& each) { return !which(each); });
  const std::vector<Request> taken(first, mWaiting.end());
  mWaiting.erase(first, mWaiting.end());
  for (const Request& each : taken) mEvents.finished(each, Outcome::Cancelled);
}

void RequestQueue::sendNext() {
  if (mCurrent || mWaiting.empty() || !mDevice) return;
  mCurrent = std::move(mWaiting.front());
  mWaiting.pop_front();
  restartSilence();
  mDevice->request(mCurrent->document, [this, id = mCurrent->id](const Document& answer) { take(id, answer); });
  const Request sent = *mCurrent;
  mEvents.sent(sent);
}

void RequestQueue::take(int id, const Document& answer) {
  if (!mCurrent || mCurrent->id != id) {
    mEvents.stray(answer);
    return;
  }
  const AnswerHead head = headOf(answer);
  ++mCurrent->answers;
  mCurrent->itemsDone += countItems(answer);
  if (head.valid && !head.isFinal && head.errorCode.empty()) {
    restartSilence();
    const Request current = *mCurrent;
    mEvents.arrived(current, answer);
    mEvents.answered(current, answer);
    return;
  }
  const Request done = *std::exchange(mCurrent, std::nullopt);
  stopSilence();
  mEvents.arrived(done, answer);
  sendNext();
  mEvents.answered(done, answer);
  mEvents.finished(done, !head.valid ? Outcome::NoAnswer : head.errorCode.empty() ? Outcome::Done : Outcome::Refused);
}

void RequestQueue::finish(Outcome outcome) {
  const Request done = *std::exchange(mCurrent, std::nullopt);
  stopSilence();
  sendNext();
  mEvents.finished(done, outcome);
}

void RequestQueue::restartSilence() {
  stopSilence();
  mSilence = mDesktop.schedule(patience(*mDevice), [this] {
    mSilence.reset();
    finish(Outcome::NoAnswer);
  });
}

void RequestQueue::stopSilence() {
  if (mSilence) mDesktop.cancel(*mSilence);
  mSilence.reset();
}

}  // namespace ostrand
