#include "host/RequestQueue.h"

#include <algorithm>

#include "host/Messages.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

bool isStop(const Request& request) { return request.action.effect == Effect::Stops; }

// Whether a stop takes the place of a request that waits: one that acts on the same.
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
  std::vector<Request> cancelled = takeOut([](const Request& waiting) { return !isStop(waiting); });
  if (mCurrent) {
    Request current = *std::exchange(mCurrent, std::nullopt);
    current.answers = current.itemsDone = 0;
    if (isStop(current))
      mWaiting.push_front(std::move(current));
    else
      cancelled.push_back(std::move(current));
  }
  sendNext();
  tellFinished(cancelled, Outcome::Cancelled);
}

void RequestQueue::submit(Request request) {
  if (!mDevice) throwNothingThere("the device");
  std::vector<Request> withdrawn;
  if (isStop(request)) {
    withdrawn = takeOut([&](const Request& waiting) { return ends(request, waiting); });
    mWaiting.insert(std::find_if_not(mWaiting.begin(), mWaiting.end(), isStop), std::move(request));
  } else {
    mWaiting.push_back(std::move(request));
  }
  sendNext();
  tellFinished(withdrawn, Outcome::Withdrawn);
}

void RequestQueue::cancelWaiting() {
  tellFinished(takeOut([](const Request& waiting) { return !isStop(waiting); }), Outcome::Cancelled);
}

std::vector<Request> RequestQueue::takeOut(const std::function<bool(const Request&)>& which) {
  const auto first = std::stable_partition(mWaiting.begin(), mWaiting.end(), [&](const Request& each) { return !which(each); });
  std::vector<Request> taken(first, mWaiting.end());
  mWaiting.erase(first, mWaiting.end());
  return taken;
}

void RequestQueue::tellFinished(const std::vector<Request>& requests, Outcome outcome) {
  for (const Request& each : requests) mEvents.finished(each, outcome);
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
