#include "host/Transfer.h"

namespace ostrand {

void Transfer::start(std::vector<Job> jobs, std::function<void()> finished) {
  std::erase_if(jobs, [](const Job& job) { return job.items.empty(); });
  mFailures.clear();
  mValues.clear();
  const auto run = std::make_shared<Run>();
  run->total = static_cast<int>(jobs.size());
  run->jobs = std::move(jobs);
  run->finished = std::move(finished);
  mRun = run;
  if (run->jobs.empty() && run->finished) run->finished();
  for (std::size_t i = 0; i < run->jobs.size() && mRun == run; ++i) submit(run, i);
}

void Transfer::retry(std::function<void()> finished) {
  std::vector<Job> again;
  if (mRun)
    for (const Job& job : mRun->jobs) {
      Job rest{job.group, job.write, {}};
      for (const MessageItem& item : job.items)
        for (const Failure& failure : mFailures)
          if (failure.group == job.group && failure.item == item.name) {
            rest.items.push_back(item);
            break;
          }
      again.push_back(std::move(rest));
    }
  start(std::move(again), std::move(finished));
}

void Transfer::submit(const std::shared_ptr<Run>& run, std::size_t index) {
  const Job& job = run->jobs[index];
  // Items that no answer has spoken of yet.
  const auto open = std::make_shared<std::vector<std::string>>();
  for (const MessageItem& item : job.items) open->push_back(item.name);
  Request request;
  request.name = job.group;
  request.write = job.write;
  request.document = job.write ? makeWriteRequest(job.group, job.items) : makeReadRequest(job.group, job.items);
  request.statusKey = job.write ? "sending" : "reading";
  request.quiet = mQuiet;
  const std::weak_ptr<Run> mine = run;
  request.onAnswer = [this, mine, index, open](const Document& answer) {
    if (const auto current = mine.lock(); current && mRun == current) take(current->jobs[index], *open, answer);
  };
  request.onFinished = [this, mine, index, open](Outcome) {
    const auto current = mine.lock();
    if (!current || mRun != current) return;
    for (const std::string& name : *open) mFailures.push_back({current->jobs[index].group, name, "missingItems", ""});
    finishJob(current);
  };
  const std::string reason = mCommunication.submit(std::move(request));
  if (reason.empty() || mRun != run) return;
  for (const MessageItem& item : job.items) mFailures.push_back({job.group, item.name, "", reason});
  finishJob(run);
}

void Transfer::take(const Job& job, std::vector<std::string>& open, const Document& answer) {
  const AnswerHead head = headOf(answer);
  if (!head.valid) return;
  const Node response = answer.root().child("comm:communicationResponse");
  std::vector<std::string> named;
  for (Node item = response.firstChild(); item; item = item.nextSibling()) {
    const auto name = item.findAttribute("name");
    if (item.name() != "comm:item" || !name) continue;
    if (head.errorCode.empty() && item.firstChild()) {
      mValues[std::string(*name)] = item;
      std::erase(open, *name);
    } else {
      named.emplace_back(*name);
    }
  }
  if (head.errorCode.empty()) return;
  // An error that names nothing is about all that is still open, and so is any error to a write: nothing was taken over.
  if (named.empty() || head.write) {
    named = open;
    if (head.write)
      for (const MessageItem& item : job.items)
        if (std::find(named.begin(), named.end(), item.name) == named.end()) named.push_back(item.name);
  }
  for (const std::string& name : named) {
    mFailures.push_back({job.group, name, head.errorCode, ""});
    std::erase(open, name);
  }
}

void Transfer::finishJob(const std::shared_ptr<Run>& run) {
  if (++run->done == run->total && run->finished) run->finished();
}

}  // namespace ostrand
