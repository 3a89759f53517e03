#include "host/AnswerRoutes.h"

#include "host/DataSet.h"
#include "host/Messages.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr const char* kValues = "values";

// Where a final answer of this name says that the device has been calibrated.
bool isVerdict(const std::string& name) { return name == "laboratoryResults" || name == "temperatureCalibration"; }

// What the device says of the last action and of a sample is meant for whoever acted.
bool isOfAction(std::string_view item) {
  return item.starts_with("actionStatus") || (item.starts_with("sample") && (item.ends_with("Quality") || item.ends_with("Deviation")));
}

}  // namespace

AnswerRoutes::AnswerRoutes(const Request& request, const Document& answer, const DataSet* dataSet) : mRequest(request), mAnswer(answer), mDataSet(dataSet) {
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
  if (isOwnReading && isVerdict(mRequest.name)) response(copy).setAttribute("isFinal", "0");
  return copy;
}

Document AnswerRoutes::values() const {
  const Document copy = mAnswer.copy();
  const Node part = response(copy);
  part.setAttribute("name", kValues);
  part.setAttribute("isFinal", "0");
  bool isEmpty = true;
  for (Node item = part.firstChild(); item;) {
    const Node next = item.nextSibling();
    const std::string name(item.findAttribute("name").value_or(""));
    if (isOfAction(name) || !mDataSet || !mDataSet->has(name))
      item.remove();
    else
      isEmpty = false;
    item = next;
  }
  return isEmpty ? Document() : copy;
}

}  // namespace ostrand
