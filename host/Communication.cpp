#include "host/Communication.h"

#include <algorithm>

#include "host/OutputRules.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

// The items of a read without any are those of the group of its name.
std::vector<MessageItem> askedFor(const Request& request, const DataSet& dataSet) {
  std::vector<MessageItem> items = itemsOf(request.document);
  return items.empty() && !request.write ? dataSet.readItems(request.name) : items;
}

// The item of a loop test that no device could take for a value; empty if there is none.
std::string testWithoutNumber(const Document& request) {
  for (const MessageItem& item : itemsOf(request))
    if (const OutputRule* const rule = outputRule(item.name);
        rule && rule->kind == OutputKind::LoopTest && requestedValue(item.value) == OutputValue::NoNumber)
      return item.name;
  return {};
}

// Only the device can tell that a sample or a test has come to its end.
bool needsDevice(const Action& stop) {
  return std::any_of(stop.about.begin(), stop.about.end(), [](const std::string& each) {
    const OutputRule* const rule = outputRule(each);
    return each == kSample || (rule && !rule->canBeRead);
  });
}

}  // namespace

Communication::Communication(Desktop& desktop, const Observers& observers, const UserSession& session, const SampleWatch& samples, Deliver deliver)
    : mDesktop(desktop),
      mObservers(observers),
      mSession(session),
      mSamples(samples),
      mDeliver(std::move(deliver)),
      mQueue(desktop, {[this](const Request& request) {
                         mObservers.tell([&](HostObserver& each) { each.requestSent(request); });
                         showProgress(request);
                       },
                       [this](const Request& request, const Document& answer) { arrived(request, answer); },
                       [this](const Request& request, const Document& answer) { answered(request, answer); },
                       [this](const Request& request, Outcome outcome) { finished(request, outcome); },
                       [this](const Document& answer) { mObservers.tell([&](HostObserver& each) { each.strayAnswer(answer); }); }}) {}

Communication::~Communication() = default;

void Communication::setMode(CommunicationMode mode) {
  mMode = mode;
  switch (mode) {
    case CommunicationMode::LocalAcceptance:
    case CommunicationMode::Download: mAcceptance = mode; break;
    case CommunicationMode::Busy: mBusy = true; break;
    case CommunicationMode::Free: mBusy = false; break;
  }
}

std::string Communication::submit(Request request) {
  request.id = ++mLastId;
  const std::vector<MessageItem> items = mDataSet ? askedFor(request, *mDataSet) : itemsOf(request.document);
  request.itemCount = static_cast<int>(items.size());
  request.action = actionOf(request.document, dataSet(), mSamples.runningOrWaiting());
  const std::string reason = reasonAgainst(request);
  if (!reason.empty()) {
    mObservers.tell([&](HostObserver& each) { each.requestRefused(request, reason); });
    return reason;
  }
  mObservers.tell([&](HostObserver& each) { each.requestQueued(request); });
  if (goesToDevice(request))
    mQueue.submit(std::move(request));
  else
    answerLocally(std::move(request));
  return {};
}

// A value that is set to stop something may be set in the data set too, where there is no device.
bool Communication::goesToDevice(const Request& request) const { return !isLocal() || (request.action.effect == Effect::Stops && device()); }

std::string Communication::reasonAgainst(const Request& request) const {
  const Effect effect = request.action.effect;
  if (effect == Effect::Stops && device()) return "";
  if (effect == Effect::Stops && needsDevice(request.action)) return "no device is connected";
  const bool changes = (request.write && !selectsRecord(request.document)) || effect == Effect::Acts;
  if (effect != Effect::Stops && changes && !mSession.mayWrite()) return "the user level does not allow to write";
  if (const std::string item = request.write ? testWithoutNumber(request.document) : ""; !item.empty())
    return "the test value of " + item + " is no number";
  if (mBusy) return "the communication is busy";
  if (!isLocal()) return device() ? "" : "no device is connected";
  if (effect == Effect::Acts) return "it makes the device act, and values are accepted locally only";
  if (!mDataSet) return "no data set is open";
  if (!request.write) return "";
  const std::vector<MessageItem> items = itemsOf(request.document);
  const bool isData = std::all_of(items.begin(), items.end(),
                                  [&](const MessageItem& item) { return mDataSet->has(item.name) && !mDataSet->info(item.name).writeOnly; });
  return isData && !items.empty() ? "" : "the device is needed for it, and values are accepted locally only";
}

void Communication::answerLocally(Request request) {
  std::vector<MessageItem> values;
  std::vector<std::string> missing;
  for (const MessageItem& asked : askedFor(request, *mDataSet)) {
    if (!mDataSet->has(asked.name) || mDataSet->info(asked.name).writeOnly) {
      missing.push_back(asked.name);
      continue;
    }
    if (request.write) mDataSet->edit(asked.name, asked.value);
    values.push_back(mDataSet->item(asked.name, true));
  }
  if (request.write) mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  std::vector<Document> answers;
  if (!values.empty() || missing.empty()) answers.push_back(makeLocalAnswer(request.document, values));
  if (!missing.empty()) answers.push_back(makeErrorAnswer(request.document, "missingItems", missing));
  if (answers.size() > 1) answers.front().root().firstChild().setAttribute("isFinal", "0");
  // A view expects its answer after the call that asked has returned.
  ++mLocalAnswers;
  mDesktop.schedule(0, [this, alive = std::weak_ptr<int>(mAlive), request, answers, failed = !missing.empty()] {
    if (alive.expired()) return;
    --mLocalAnswers;
    for (const Document& answer : answers) {
      mObservers.tell([&](HostObserver& each) { each.requestAnswered(request, answer); });
      answered(request, answer);
      if (alive.expired()) return;
    }
    finished(request, failed ? Outcome::Refused : Outcome::Done);
  });
}

void Communication::showProgress(const Request& request) {
  if (request.statusKey.empty()) return;
  mObservers.tell([&](HostObserver& each) { each.progress(request.statusKey, request.progressDone(), request.progressTotal()); });
}

void Communication::arrived(const Request& request, const Document& answer) {
  mObservers.tell([&](HostObserver& each) { each.requestAnswered(request, answer); });
  showProgress(request);
  if (request.quiet || !mDataSet) return;
  const AnswerHead head = headOf(answer);
  if (const auto started = startedSample(request.document); started && head.fromDevice() && head.errorCode.empty() && response(answer).firstChild())
    mDataSet->forgetSample(started->start == RunningSample::Start::Written || started->start == RunningSample::Start::Executed
                               ? kSample + std::to_string(started->number)
                               : kSample);
  for (const std::string& name : mDataSet->takeAnswer(answer, mDesktop.now(), mUnits.get()))
    mObservers.tell([&](HostObserver& each) { each.logged("", 'C', "The device's value of " + name + " cannot be used"); });
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
}

void Communication::answered(const Request& request, const Document& answer) {
  if (request.onAnswer) request.onAnswer(answer);
  // What is no answer at all ends as one that never came.
  const AnswerHead head = headOf(answer);
  if (!request.quiet && head.valid && (request.tellsFailure || head.errorCode.empty())) mDeliver(request, answer);
}

void Communication::finished(const Request& request, Outcome outcome) {
  const Request* const next = mQueue.underWay();
  if (!request.statusKey.empty() && (!next || next->statusKey.empty())) mObservers.tell([](HostObserver& each) { each.progress("", 0, 0); });
  mObservers.tell([&](HostObserver& each) { each.requestFinished(request, outcome); });
  const bool unanswered = outcome == Outcome::NoAnswer || outcome == Outcome::Cancelled || outcome == Outcome::Withdrawn;
  if (unanswered) {
    std::vector<std::string> names;
    for (const MessageItem& item : itemsOf(request.document)) names.push_back(item.name);
    const Document error = makeErrorAnswer(request.document, "communicationError", names);
    if (request.onAnswer) request.onAnswer(error);
    // The user knows what he has cancelled; a view that waits for its answer must still hear that there is none. Not of what a
    // stop has taken the place of: its answer is the one to wait for, and no message may stand before the stop.
    const bool told = outcome == Outcome::NoAnswer || (outcome == Outcome::Cancelled && !request.asker.empty());
    if (!request.quiet && request.tellsFailure && told) mDeliver(request, error);
  }
  if (request.onFinished) request.onFinished(outcome);
}

}  // namespace ostrand
