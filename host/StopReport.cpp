#include "host/StopReport.h"

#include <algorithm>
#include <utility>

#include "host/Messages.h"

namespace ostrand {

StopReport::StopReport(Desktop& desktop, Observers& observers, const OutputWatch& outputs, Show show)
    : mDesktop(desktop), mObservers(observers), mOutputs(outputs), mShow(std::move(show)) {
  mObservers.add(*this);
}

StopReport::~StopReport() {
  if (mTimer) mDesktop.cancel(*mTimer);
  mObservers.remove(*this);
}

void StopReport::requestRefused(const Request& request, const std::string&) {
  if (request.action.effect == Effect::Stops) return tellOfStop(request.action);
  if (!request.write) return;
  for (const MessageItem& item : itemsOf(request.document)) {
    const OutputRule* const rule = outputRule(item.name);
    if (rule && rule->kind == OutputKind::LoopTest && requestedValue(item.value) == OutputValue::NoNumber)
      return tell({"loopTest", "loopTestValueIsNoNumber"});
  }
}

// Looked at with the answer: when the stop is finished another start may be under way.
void StopReport::requestAnswered(const Request& request, const Document&) {
  if (request.action.effect == Effect::Stops && isConfirmed(request.action)) mConfirmed.insert(request.id);
}

void StopReport::requestFinished(const Request& request, Outcome outcome) {
  const bool confirmed = mConfirmed.erase(request.id) > 0;
  if (request.action.effect != Effect::Stops || outcome == Outcome::Cancelled) return;
  if (outcome != Outcome::Done || !confirmed) tellOfStop(request.action);
}

bool StopReport::isConfirmed(const Action& stop) const {
  if (stop.about.contains(kSample)) return !mOutputs.sampling();
  const std::vector<ForcedOutput> forced = mOutputs.forced();
  return std::none_of(forced.begin(), forced.end(), [&](const ForcedOutput& each) { return stop.about.contains(each.item); });
}

void StopReport::tellOfStop(const Action& stop) {
  for (const std::string& about : stop.about) {
    if (about == kSample) tell({"sampling", "samplingStopRefused"});
    const OutputRule* const rule = outputRule(about);
    if (!rule) continue;
    switch (rule->kind) {
      case OutputKind::LoopTest: tell({"loopTest", "loopTestStopRefused"}); break;
      case OutputKind::Simulation: tell({"simulation", "simulationStopRefused"}); break;
      case OutputKind::Trim: tell({"mACalibration", "fixedCurrentStopRefused"}); break;
    }
  }
}

// Out of the event pump: whoever sent the stop goes on first.
void StopReport::tell(const Words& words) {
  mToTell.insert(words);
  if (mTimer) return;
  mTimer = mDesktop.schedule(0, [this] {
    mTimer.reset();
    // The user may close everything while he reads one of them.
    const Show show = mShow;
    const std::weak_ptr<int> alive = mAlive;
    for (const Words& each : std::exchange(mToTell, {}))
      if (!alive.expired()) show(each.title, each.message);
  });
}

}  // namespace ostrand
