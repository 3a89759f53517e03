#include "host/OutputWatch.h"

#include "host/Messages.h"
#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr std::string_view kRequest = "loopTest";
constexpr int kConfirmed = 0;

// The channels of a device that has several answer measured floats; the one value of the others is exact.
bool isZero(const std::string& item, double value) { return item == "loopTestValue" ? value == 0.0 : value <= 0.1; }

// Each item with its number; a text that is no number may be anything.
template <class Tell>
void forEachValue(const Node& parent, Tell tell) {
  if (!parent) return;
  for (Node item = parent.firstChild(); item; item = item.nextSibling()) {
    const Node value = item.firstChild();
    if (value) tell(std::string(item.findAttribute("name").value_or("")), parseNumber(value.text(), '.'));
  }
}

}  // namespace

OutputWatch::OutputWatch(Observers& observers) : mObservers(observers) { mObservers.add(*this); }

OutputWatch::~OutputWatch() { mObservers.remove(*this); }

void OutputWatch::requestSent(const Request& request) {
  if (request.name != kRequest || !request.write) return;
  const bool before = mayBeForced();
  forEachValue(requestElement(request.document), [&](const std::string& item, std::optional<double> value) {
    if (!value || !isZero(item, *value)) mForced.try_emplace(item, request.id);
  });
  if (mayBeForced() != before) changed();
}

void OutputWatch::requestAnswered(const Request& request, const Document& answer) {
  const AnswerHead head = headOf(answer);
  if (request.name != kRequest || !head.write || head.local || !head.errorCode.empty()) return;
  forEachValue(response(answer), [&](const std::string& item, std::optional<double> value) {
    if (value && isZero(item, *value))
      mForced.erase(item);
    else
      mForced[item] = kConfirmed;
  });
  changed();
}

// A device that refuses a value has left its output as it was: which is not known if an earlier value was never answered.
void OutputWatch::requestFinished(const Request& request, Outcome outcome) {
  if (request.name != kRequest || !request.write || outcome != Outcome::Refused) return;
  forEachValue(requestElement(request.document), [&](const std::string& item, std::optional<double>) {
    if (const auto found = mForced.find(item); found != mForced.end() && found->second == request.id) mForced.erase(found);
  });
  changed();
}

}  // namespace ostrand
