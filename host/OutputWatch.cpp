#include "host/OutputWatch.h"

#include <algorithm>

#include "host/Messages.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

OutputWatch::OutputWatch(Observers& observers, Communication& communication, SampleWatch& samples)
    : mObservers(observers), mCommunication(communication), mSamples(samples), mListening(samples.changed.connect([this] { changed(); })) {
  mObservers.add(*this);
}

OutputWatch::~OutputWatch() {
  mSamples.changed.disconnect(mListening);
  mObservers.remove(*this);
}

bool OutputWatch::mayBeForced(OutputKind kind) const {
  return std::any_of(mForced.begin(), mForced.end(), [&](const auto& each) { return each.second.kind == kind; });
}

std::vector<ForcedOutput> OutputWatch::forced() const {
  std::vector<ForcedOutput> all;
  for (const auto& [item, watched] : mForced) all.push_back({item, watched.kind, watched.request == 0});
  return all;
}

bool OutputWatch::holdsDocuments() const {
  return !mTestsWaiting.empty() || std::any_of(mForced.begin(), mForced.end(), [](const auto& each) {
    return each.second.kind == OutputKind::LoopTest && !each.second.seenFreeByUser;
  });
}

void OutputWatch::requireNoLoopTest() const {
  if (holdsDocuments())
    throw RuntimeError(RuntimeError::PermissionDenied,
                       "a loop test may still drive the output: stop it, or confirm at the device that the output is free");
}

void OutputWatch::confirmedByUser() {
  for (auto& [item, watched] : mForced) watched.seenFreeByUser = true;
  changed();
}

// --- what the device is told, and what it says

void OutputWatch::requestQueued(const Request& request) {
  if (!request.write) return;
  for (const MessageItem& item : itemsOf(request.document)) {
    const OutputRule* const rule = outputRule(item.name);
    if (rule && rule->kind == OutputKind::LoopTest && requestedValue(item.value) != OutputValue::Frees) mTestsWaiting.insert(request.id);
  }
}

void OutputWatch::requestFinished(const Request& request, Outcome) { mTestsWaiting.erase(request.id); }

void OutputWatch::requestSent(const Request& request) {
  mTestsWaiting.erase(request.id);
  if (!request.write) return;
  bool moved = false;
  for (const MessageItem& item : itemsOf(request.document)) {
    const OutputRule* const rule = outputRule(item.name);
    // A text that is no number may be anything.
    if (!rule || requestedValue(item.value) == OutputValue::Frees) continue;
    moved = true;
    mForced.try_emplace(item.name, Watched{rule->kind, request.id}).first->second.seenFreeByUser = false;
  }
  if (moved) changed();
}

void OutputWatch::requestAnswered(const Request& request, const Document& answer) {
  const AnswerHead head = headOf(answer);
  if (!head.fromDevice() || head.isCommunicationError()) return;
  if (head.errorCode.empty())
    take(request, answer);
  else
    forgetRefused(request, answer);
}

void OutputWatch::take(const Request& request, const Document& answer) {
  bool moved = false;
  for (const MessageItem& item : answeredItems(answer)) {
    const OutputRule* const rule = outputRule(item.name);
    if (!rule || (!request.write && !rule->canBeRead)) continue;
    const OutputValue value = answeredValue(*rule, item.value);
    if (value == OutputValue::NoNumber) continue;
    moved = true;
    if (value == OutputValue::Frees)
      mForced.erase(item.name);
    else
      mForced.insert_or_assign(item.name, Watched{rule->kind, 0});
  }
  if (moved) changed();
}

// A device that refuses a value has left its output as it was: which is not known if an earlier value was never answered.
void OutputWatch::forgetRefused(const Request& request, const Document& answer) {
  const auto count = mForced.size();
  for (const MessageItem& item : answeredItems(answer))
    if (const auto found = mForced.find(item.name); found != mForced.end() && found->second.request == request.id) mForced.erase(found);
  if (mForced.size() != count) changed();
}

// --- the way to free it

void OutputWatch::freeOutput(std::function<void(bool)> finished) {
  std::map<std::string, std::vector<MessageItem>> byGroup;
  const DataSet* const dataSet = mCommunication.dataSet();
  for (const auto& [name, watched] : mForced) {
    const bool known = dataSet && dataSet->has(name);
    MessageItem item = known ? dataSet->item(name, false) : MessageItem{name, "noUnit", "floatVal", ""};
    item.value = "0";
    const std::string group = known ? dataSet->homeGroup(name) : "";
    byGroup[group.empty() ? "loopTest" : group].push_back(std::move(item));
  }
  // Told once, when the last of them has come to its end; also where there was nothing to send.
  const auto open = std::make_shared<std::size_t>(byGroup.size() + 1);
  const auto ended = [this, alive = std::weak_ptr(mAlive), open, finished = std::move(finished)] {
    if (--*open == 0 && finished && !alive.expired()) finished(!mayBeForced());
  };
  for (const auto& [group, items] : byGroup) {
    Request request;
    request.name = group;
    request.write = true;
    request.document = makeWriteRequest(group, items);
    request.onFinished = [ended](Outcome) { ended(); };
    if (!mCommunication.submit(std::move(request)).empty()) ended();
  }
  ended();
}

void OutputWatch::stopSampling(std::function<void(bool)> finished) {
  const auto running = mSamples.running();
  if (!running) {
    if (finished) finished(true);
    return;
  }
  Request request;
  request.document = stopOf(*running, mCommunication.dataSet());
  request.name = "sampling";
  request.write = requestElement(request.document).attribute("access") == "write";
  request.onFinished = [this, alive = std::weak_ptr(mAlive), finished](Outcome) {
    if (finished && !alive.expired()) finished(!sampling());
  };
  if (!mCommunication.submit(std::move(request)).empty() && finished) finished(false);
}

}  // namespace ostrand
