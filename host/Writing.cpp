#include "host/Writing.h"

#include <algorithm>

#include "host/ActingValues.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

LeftOut leftOut(LeftOut::Why why, const Change& change) { return {why, change.name, change.caption}; }

// Takes those out of `changes` for which `why` has a reason.
template <class Why>
std::vector<LeftOut> takeOut(std::vector<Change>& changes, Why why) {
  std::vector<LeftOut> left;
  std::vector<Change> rest;
  for (Change& change : changes) {
    if (const std::optional<LeftOut::Why> reason = why(change))
      left.push_back(leftOut(*reason, change));
    else
      rest.push_back(std::move(change));
  }
  changes = std::move(rest);
  return left;
}

}  // namespace

Writing::Writing(Communication& communication, Transfer& transfer, Confirm confirm, Record record)
    : mCommunication(communication), mTransfer(transfer), mConfirm(std::move(confirm)), mRecord(std::move(record)) {}

DataSet& Writing::dataSet() const {
  DataSet* const open = mCommunication.dataSet();
  if (!open) throwNothingThere("the data set");
  return *open;
}

std::vector<LeftOut> Writing::sortOut(std::vector<Change>& changes, const std::string& page) const {
  const DataSet& open = dataSet();
  const std::vector<std::string> own = page.empty() ? std::vector<std::string>() : open.parametersOf(page);
  return takeOut(changes, [&](const Change& change) -> std::optional<LeftOut::Why> {
    if (isRecord(change)) return std::nullopt;
    if (!open.has(change.name) || open.homeGroup(change.name).empty()) return LeftOut::Why::NoParameter;
    switch (actsOf(&open, change.name)) {
      case Acts::ByButton: return LeftOut::Why::ByButton;
      case Acts::ByPage: return std::find(own.begin(), own.end(), change.name) == own.end() ? std::optional(LeftOut::Why::ByPage) : std::nullopt;
      case Acts::No: break;
    }
    return std::nullopt;
  });
}

bool Writing::isRecord(const Change& change) const {
  if (dataSet().has(change.name) || change.contextTag.empty() || mCommunication.isLocal()) return false;
  const std::vector<MessageItem> items = mRecord(change);
  return !items.empty() &&
         std::all_of(items.begin(), items.end(), [&](const MessageItem& item) { return actsOf(&dataSet(), item.name) == Acts::No; });
}

std::vector<Transfer::Job> Writing::jobsFor(const std::vector<Change>& changes) const {
  std::vector<Transfer::Job> jobs;
  for (const Change& change : changes) {
    if (isRecord(change)) {
      jobs.push_back({change.contextTag, true, mRecord(change)});
      continue;
    }
    const std::string group = dataSet().homeGroup(change.name);
    auto job = std::find_if(jobs.begin(), jobs.end(), [&](const Transfer::Job& each) { return each.group == group; });
    if (job == jobs.end()) job = jobs.insert(jobs.end(), {group, true, {}});
    MessageItem item = dataSet().item(change.name, false);
    if (!change.unit.empty()) item.unit = change.unit;
    item.value = change.newText;
    job->items.push_back(std::move(item));
  }
  return jobs;
}

std::vector<LeftOut> Writing::applyChanges(std::vector<Change> changes, std::function<void()> finished, const std::string& page) {
  std::vector<LeftOut> left = sortOut(changes, page);
  std::vector<Change> acting;
  for (const Change& change : changes)
    if (actsOf(&dataSet(), change.name) == Acts::ByPage) acting.push_back(change);
  // What is accepted locally moves nothing: it will be asked about when it leaves.
  if (!acting.empty() && !mCommunication.isLocal() && !mConfirm(acting)) {
    const auto isActing = [&](const Change& change) {
      return std::any_of(acting.begin(), acting.end(), [&](const Change& each) { return each.name == change.name; });
    };
    for (const LeftOut& each :
         takeOut(changes, [&](const Change& change) { return isActing(change) ? std::optional(LeftOut::Why::Declined) : std::nullopt; }))
      left.push_back(each);
  }
  // Under the question another data set may have been opened: by that one they are sorted now.
  const std::vector<LeftOut> gone = sortOut(changes, page);
  left.insert(left.end(), gone.begin(), gone.end());
  mTransfer.start(jobsFor(changes), std::move(finished));
  return left;
}

std::vector<LeftOut> Writing::writeParameters(const std::vector<std::string>& names, std::function<void()> finished) {
  std::vector<Change> changes;
  for (const std::string& group : dataSet().groups())
    for (const std::string& name : names)
      if (dataSet().homeGroup(name) == group) changes.push_back({{}, name, {}, {}, dataSet().current(name), {}, {}, group});
  for (const std::string& name : names)
    if (dataSet().homeGroup(name).empty()) changes.push_back({{}, name, {}, {}, {}, {}, {}, {}});
  return applyChanges(std::move(changes), std::move(finished), {});
}

std::vector<LeftOut> Writing::keep(const std::vector<Change>& changes) {
  DataSet& open = dataSet();
  std::vector<LeftOut> left;
  for (const Change& change : changes) {
    if (!open.has(change.name))
      left.push_back(leftOut(LeftOut::Why::NoParameter, change));
    else if (actsOf(&open, change.name) == Acts::ByButton)
      left.push_back(leftOut(LeftOut::Why::ByButton, change));
    else
      open.edit(change.name, change.newText);
  }
  return left;
}

}  // namespace ostrand
