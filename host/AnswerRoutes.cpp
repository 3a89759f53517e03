#include "host/AnswerRoutes.h"

#include <functional>

#include "host/DataSet.h"
#include "host/Messages.h"
#include "host/OutputRules.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr const char* kValues = "values";

// Where a final answer of this name says that the device has been calibrated.
bool isVerdict(const std::string& name) { return name == "laboratoryResults" || name == "temperatureCalibration"; }

// What only the answer to a write proves: a reading of a test value says nothing of the test.
bool provesNothing(std::string_view item) {
  const OutputRule* const rule = outputRule(item);
  return rule && !rule->canBeRead;
}

// What the device says of the last action, of a sample and of a test is meant for whoever acted.
bool isOfAction(std::string_view item) {
  return provesNothing(item) || item.starts_with("actionStatus") ||
         (item.starts_with("sample") && (item.ends_with("Quality") || item.ends_with("Deviation")));
}

void removeItems(const Node& response, const std::function<bool(std::string_view name)>& which) {
  for (Node item = response.firstChild(); item;) {
    const Node next = item.nextSibling();
    if (which(item.findAttribute("name").value_or(""))) item.remove();
    item = next;
  }
}

}  // namespace

AnswerRoutes::AnswerRoutes(const Request& request, const Document& answer, const DataSet* dataSet)
    : mRequest(request), mAnswer(answer), mDataSet(dataSet) {
  const AnswerHead head = headOf(answer);
  mIsError = !head.errorCode.empty();
  mIsLocalWrite = head.local && head.write && !mIsError;
}

Document AnswerRoutes::forView(const std::string& view) const {
  if (mIsLocalWrite) return values();
  if (mRequest.asker.empty() || mRequest.asker == view) return whole();
  return mIsError ? Document() : values();
}

Document AnswerRoutes::whole() const {
  const Document copy = mAnswer.copy();
  const bool isOwnReading = mRequest.asker.empty() && !mRequest.write && !mIsError;
  if (!isOwnReading) return copy;
  if (isVerdict(mRequest.name)) response(copy).setAttribute("isFinal", "0");
  removeItems(response(copy), provesNothing);
  return copy;
}

Document AnswerRoutes::values() const {
  const Document copy = mAnswer.copy();
  const Node part = response(copy);
  part.setAttribute("name", kValues);
  part.setAttribute("isFinal", "0");
  removeItems(part, [this](std::string_view name) { return isOfAction(name) || !mDataSet || !mDataSet->has(name); });
  return part.firstChild() ? copy : Document();
}

}  // namespace ostrand
