#include "host/SampleWatch.h"

#include "host/Messages.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

void SampleWatch::requestQueued(const Request& request) {
  if (const auto started = startedSample(request.document)) mWaiting.emplace(request.id, *started);
}

void SampleWatch::requestFinished(const Request& request, Outcome) { mWaiting.erase(request.id); }

void SampleWatch::requestSent(const Request& request) {
  mWaiting.erase(request.id);
  const auto started = startedSample(request.document);
  if (!started) return;
  mBefore = mRunning;
  mStart = request.id;
  set(started);
}

void SampleWatch::requestAnswered(const Request& request, const Document& answer) {
  const AnswerHead head = headOf(answer);
  if (!head.fromDevice()) return;
  if (!head.errorCode.empty()) {
    if (request.id == mStart && !head.isCommunicationError()) {
      mStart = 0;
      set(mBefore);
    }
    return;
  }
  if (request.id == mStart && head.isFinal) mStart = 0;
  const bool isStop = request.action.effect == Effect::Stops && request.action.about.contains(kSample);
  // A stop that the device acknowledges without a word of what it did has stopped nothing.
  if (isStop && head.isFinal && response(answer).firstChild()) set(std::nullopt);
  if (!head.write && item(answer, "statusSamplingActive") && item(answer, "statusSamplingActive").text() == "0") set(std::nullopt);
}

void SampleWatch::set(std::optional<RunningSample> running) {
  const bool moved = running.has_value() != mRunning.has_value();
  mRunning = running;
  if (moved) changed();
}

}  // namespace ostrand
