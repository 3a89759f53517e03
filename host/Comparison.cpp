#include "host/Comparison.h"

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

void Comparison::start(std::function<void()> finished) {
  const DataSet* const dataSet = mCommunication.dataSet();
  if (!dataSet) throwNothingThere("the data set");
  mRows.clear();
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : dataSet->groups()) {
    Transfer::Job job{group, false, {}};
    for (MessageItem& item : dataSet->readItems(group))
      if (dataSet->homeGroup(item.name) == group) job.items.push_back(std::move(item));
    for (const MessageItem& item : job.items) mRows.push_back({item.name, group, item.unit, dataSet->current(item.name), "", "", false});
    jobs.push_back(std::move(job));
  }
  mTransfer.start(std::move(jobs), [this, finished = std::move(finished)] {
    compare();
    if (finished) finished();
  });
}

void Comparison::compare() {
  const DataSet* const dataSet = mCommunication.dataSet();
  if (!dataSet) return;
  for (Row& row : mRows) {
    for (const Transfer::Failure& failure : mTransfer.failures())
      if (failure.item == row.parameter) row.errorCode = failure.errorCode.empty() ? "communicationError" : failure.errorCode;
    const auto found = mTransfer.values().find(row.parameter);
    if (found == mTransfer.values().end()) continue;
    const ParameterInfo info = dataSet->info(row.parameter);
    if (const auto value = usableValue(found->second, info, mUnits.get())) {
      row.device = *value;
      row.same = sameShown(info, row.dataSet, row.device);
    } else {
      row.errorCode = "communicationError";
    }
  }
}

bool sameShown(const ParameterInfo& info, const std::string& a, const std::string& b) {
  if (a == b) return true;
  const auto first = info.isNumeric() ? parseNumber(a, '.') : std::nullopt;
  const auto second = info.isNumeric() ? parseNumber(b, '.') : std::nullopt;
  if (!first || !second) return false;
  if (!info.decimals) return *first == *second;
  return fixedText(*first, *info.decimals, '.') == fixedText(*second, *info.decimals, '.');
}

}  // namespace ostrand
