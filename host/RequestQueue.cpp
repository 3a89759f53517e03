#include "host/RequestQueue.h"

#include "host/Messages.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

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
  if (mCurrent) finish(Outcome::Cancelled);
}

void RequestQueue::submit(Request request) {
  if (!mDevice) throwNothingThere("the device");
  mWaiting.push_back(std::move(request));
  if (!mCurrent) sendNext();
}

void RequestQueue::cancelWaiting() {
  for (const Request& each : std::exchange(mWaiting, {})) mEvents.finished(each, Outcome::Cancelled);
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
