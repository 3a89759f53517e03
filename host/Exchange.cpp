#include "host/Exchange.h"

#include "host/Questions.h"
#include "host/User.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr const char* kActingValuesTitle = "warning";
constexpr const char* kActingValuesWarning = "actingValuesWarning";

}  // namespace

Exchange::Exchange(Communication& communication, const User& user, UserPrompt& prompt, Writing::Record record)
    : mCommunication(communication),
      mUser(user),
      mPrompt(prompt),
      mTransfer(communication),
      mWriting(
          communication, mTransfer, [this](const std::vector<Change>& acting) { return confirms(acting); }, std::move(record)),
      mComparison(communication, user.units()) {}

DataSet& Exchange::dataSet() const {
  DataSet* const open = mCommunication.dataSet();
  if (!open) throwNothingThere("the data set");
  return *open;
}

std::string Exchange::submit(const std::string& view, const std::string& xml, const std::string& name, const std::string& statusKey, int first,
                             int second) {
  Request request;
  request.document = readRequestText(xml, name);
  const Node asked = requestElement(request.document);
  request.asker = view;
  request.name = std::string(asked.attribute("name"));
  request.write = asked.attribute("access") == "write";
  request.statusKey = statusKey;
  request.first = first;
  request.second = second;
  return mCommunication.submit(std::move(request));
}

void Exchange::readGroup(const std::string& group, std::function<void()> finished) {
  mTransfer.start({{group, false, dataSet().readItems(group)}}, std::move(finished));
}

void Exchange::readAll(std::function<void()> finished) {
  const DataSet& open = dataSet();
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : open.groups()) jobs.push_back({group, false, open.readItems(group)});
  mTransfer.start(std::move(jobs), std::move(finished));
}

void Exchange::readParameters(const std::vector<std::string>& names, std::function<void()> finished) {
  const DataSet& open = dataSet();
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : open.groups()) {
    Transfer::Job job{group, false, {}};
    for (const std::string& name : names)
      if (open.homeGroup(name) == group) job.items.push_back(open.item(name, false));
    jobs.push_back(std::move(job));
  }
  mTransfer.start(std::move(jobs), std::move(finished));
}

std::vector<LeftOut> Exchange::writeParameters(const std::vector<std::string>& names, std::function<void()> finished) {
  return mWriting.writeParameters(names, std::move(finished));
}

std::vector<LeftOut> Exchange::applyChanges(const std::vector<Change>& changes, std::function<void()> finished, const std::string& page) {
  return mWriting.applyChanges(changes, std::move(finished), page);
}

std::vector<LeftOut> Exchange::keepChanges(const std::vector<Change>& changes) { return mWriting.keep(changes); }

bool Exchange::confirms(const std::vector<Change>& acting) {
  const Ref<ITextTable> texts = mUser.textTable();
  std::string question = texts->GetText(kActingValuesWarning) + "\r\n";
  for (const Change& change : acting) {
    const Node choices = mappingByTail(dataSet().document(), change.name);
    question += "\r\n" + wordedValue(*texts, change.name, wordedChoice(*texts, choices, change.newText), change.unit);
  }
  return mPrompt.ask(texts->GetText(kActingValuesTitle), question, answersTo(*texts, kActingValuesWarning)) == UserPrompt::kGoOn;
}

}  // namespace ostrand
