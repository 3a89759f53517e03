#include "host/LiveReading.h"

#include <vector>

namespace ostrand {

LiveReading::LiveReading(Desktop& desktop, Communication& communication, std::function<std::string()> wanted,
                         std::function<bool(const std::string&)> edited)
    : mDesktop(desktop), mCommunication(communication), mWanted(std::move(wanted)), mEdited(std::move(edited)) {}

LiveReading::~LiveReading() {
  if (mTimer) mDesktop.cancel(*mTimer);
}

void LiveReading::setPeriod(double seconds) { mPeriod = std::max(seconds, 0.05); }

void LiveReading::refresh() {
  const bool wanted = !mWanted().empty();
  if (wanted && !mTimer && !mReading) next(0);
  if (wanted || !mTimer) return;
  mDesktop.cancel(*mTimer);
  mTimer.reset();
}

void LiveReading::next(double seconds) {
  if (mTimer) mDesktop.cancel(*mTimer);
  mTimer = mDesktop.schedule(seconds, [this] {
    mTimer.reset();
    tick();
  });
}

void LiveReading::tick() {
  const std::string group = mWanted();
  if (group.empty() || mReading) return;
  DataSet* const dataSet = mCommunication.dataSet();
  auto items = dataSet ? dataSet->readItems(group) : std::vector<MessageItem>();
  std::erase_if(items, [this](const MessageItem& item) { return mEdited(item.name); });
  const bool possible = mCommunication.device() && !mCommunication.isLocal() && !mCommunication.isBusy() && mCommunication.idle();
  if (!possible || items.empty()) return next(mPeriod);
  mReading = std::make_shared<int>();
  Request request;
  request.name = group;
  request.document = makeReadRequest(group, items);
  request.tellsFailure = !mFailing;
  request.onFinished = [this, mine = std::weak_ptr<int>(mReading)](Outcome outcome) {
    if (mine.expired()) return;
    mFailing = outcome != Outcome::Done;
    mReading.reset();
    if (!mWanted().empty()) next(mPeriod);
  };
  if (!mCommunication.submit(std::move(request)).empty()) {
    mReading.reset();
    next(mPeriod);
  }
}

}  // namespace ostrand
