#include "host/Edits.h"

#include <algorithm>
#include <utility>

#include "host/Host.h"
#include "platform/controls/StatusWords.h"

namespace ostrand {

std::vector<Change> Edits::collect(int mode) {
  std::vector<Change> changes;
  std::vector<Change>* const before = std::exchange(mCollecting, &changes);
  mHost.views().raise({ViewEvent::Kind::GetChanges, mode, {}, {}});
  mCollecting = before;
  return changes;
}

std::vector<LeftOut> Edits::keepTyped() {
  std::vector<LeftOut> left = mHost.exchange().keepChanges(collect());
  mHost.observers().tell([](HostObserver& each) { each.dataSetChanged(); });
  return left;
}

void Edits::discard() {
  DataSet* const open = mHost.dataSet();
  if (!open) return;
  mHost.outputs().requireNoLoopTest();
  for (const std::string& name : open->edited()) open->discardEdit(name);
  mHost.observers().tell([](HostObserver& each) { each.dataSetChanged(); });
  for (const Ref<ViewSite>& site : std::vector(mHost.views().sites())) site->handIn(DataPath::Offline, open->deviceCopy());
}

bool Edits::isShown(const std::string& parameter) const {
  return std::any_of(mShown.begin(), mShown.end(), [&](const auto& view) { return view.second.contains(parameter); });
}

// --- the views' words

int Edits::add(Change change) {
  mHost.observers().tell([&](HostObserver& each) { each.changeAdded(change); });
  if (!mCollecting) return 0;
  mCollecting->push_back(std::move(change));
  return static_cast<int>(mCollecting->size());
}

void Edits::noteStatus(const std::string& view, const std::string& parameter, const std::string& word) {
  if (word == EditWord::kOriginal)
    mShown[view].erase(parameter);
  else if (word == EditWord::kEdited || word == EditWord::kEditedError || word == EditWord::kCorrected)
    mShown[view].insert(parameter);
}

}  // namespace ostrand
