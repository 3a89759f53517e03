#include "workbench/plant/PlantDevice.h"

#include <algorithm>
#include <set>

#include "host/PendingEdits.h"
#include "platform/base/RuntimeError.h"
#include "workbench/plant/ValueText.h"

namespace ostrand {

namespace {

constexpr unsigned kSeed = 1;

}  // namespace

PlantDevice::PlantDevice(const Plant& plant, const DeviceKind& kind)
    : mPlant(plant),
      mKind(kind),
      mTap(plant.log, plant.desktop),
      mRecordings(plant.components, plant.desktop),
      mHost(plant.desktop, mRecordings.components(), plant.prompt, plant.dataFolder, mTap.taps(mRecordings.taps())),
      mStatus(mHost) {
  mTap.attach(mHost);
  mRecordings.setLanguage(mHost.user().session().language);
  mRecordings.setLocale(plant.desktop.locale().name);
  mHost.openDataSet(plant.dataFolder / std::string(kind.dataSet));
  switchOn();
}

PlantDevice::~PlantDevice() {
  while (!mHost.views().sites().empty()) mHost.views().release(*mHost.views().sites().back());
  mTap.detach(mHost);
}

void PlantDevice::switchOn() { mHost.connect(makeDevice(mKind.name, mPlant.desktop, mHost.dataSet()->document(), kSeed)); }

ViewClasses PlantDevice::classes() {
  const Document& document = mHost.dataSet()->document();
  return {document.selectText("//typeInfo:internalInfo/@deviceFamily").value_or(""), mHost.dataSet()->busCategory()};
}

std::string PlantDevice::classFor(std::string_view branch) {
  const std::string name(classes().of(branch));
  return !name.empty() && mPlant.components.has(name) ? name : std::string();
}

std::string PlantDevice::title() {
  const std::string tag = mHost.dataSet()->current("tag");
  return tag.empty() ? std::string(mKind.name) : tag;
}

Ref<ViewSite> PlantDevice::siteOf(const std::string& branch) {
  for (const Ref<ViewSite>& site : mHost.views().sites())
    if (site->tag() == branch) return site;
  return nullptr;
}

bool PlantDevice::show(const std::string& branch, const std::string& frame) {
  if (const Ref<ViewSite> site = siteOf(branch)) return mHost.views().bringToFront(*site, frame);
  if (const Ref<ViewSite> front(mHost.views().front()); front && !front->leave()) return false;
  const Ref<ViewSite> site = mHost.views().place(classFor(branch), branch);
  mHost.views().showsFront(*site);
  mHost.views().open(*site, frame);
  return true;
}

std::string PlantDevice::branch() { return mHost.views().front() ? mHost.views().front()->tag() : std::string(); }

std::string PlantDevice::frame() {
  const ViewSite* const front = mHost.views().front();
  if (!front) return {};
  const std::string selected = front->selected();
  return selected.empty() ? front->tag() : selected;
}

void PlantDevice::reopen() {
  const std::string branch = this->branch();
  const std::string frame = this->frame();
  if (branch.empty()) return;
  mHost.views().release(*mHost.views().front());
  show(branch, frame);
}

std::string PlantDevice::transcript() {
  const TranscriptRecorder* const recorder = mHost.views().front() ? mRecordings.of(*mHost.views().front()) : nullptr;
  return recorder ? recorder->text() : std::string();
}

bool PlantDevice::hasPendingEdits() { return viewsHaveEdits() || (mHost.dataSet() && !mHost.dataSet()->edited().empty()); }

bool PlantDevice::hasUnsavedValues() { return viewsHaveEdits() || (mHost.dataSet() && mHost.dataSet()->changed()); }

bool PlantDevice::viewsHaveEdits() { return !viewEdits().empty(); }

std::vector<EditControl*> PlantDevice::viewEdits() {
  std::vector<EditControl*> edits;
  for (const Ref<ViewSite>& site : mHost.views().sites())
    for (EditControl* const edit : pendingEdits(site->view())) edits.push_back(edit);
  return edits;
}

std::vector<Change> PlantDevice::waiting() {
  DataSet* const dataSet = mHost.dataSet();
  if (!dataSet) return {};
  std::vector<Change> changes = mHost.edits().collect();
  for (const std::string& name : dataSet->edited()) {
    if (std::any_of(changes.begin(), changes.end(), [&](const Change& each) { return each.name == name; })) continue;
    const ParameterInfo info = dataSet->info(name);
    changes.push_back({{}, name, {}, dataSet->value(name), dataSet->offlineValue(name), info.unit, info.type, dataSet->homeGroup(name)});
  }
  return changes;
}

std::size_t PlantDevice::waitingCount() {
  std::set<std::string, std::less<>> names;
  for (const EditControl* const edit : viewEdits())
    if (!edit->KeepLocal() && !edit->ExplicitApply()) names.emplace(edit->parameterName());
  if (mHost.dataSet())
    for (const std::string& name : mHost.dataSet()->edited()) names.insert(name);
  return names.size();
}

std::vector<EditControl*> PlantDevice::leftOut() {
  const std::vector<Change> going = waiting();
  std::vector<EditControl*> left = viewEdits();
  std::erase_if(left, [&](const EditControl* edit) {
    return edit->ReadOnly() || std::any_of(going.begin(), going.end(), [&](const Change& each) { return each.name == edit->parameterName(); });
  });
  return left;
}

std::set<std::string> PlantDevice::keepEdits() {
  std::set<std::string> left;
  if (mHost.dataSet())
    for (const LeftOut& each : mHost.edits().keepTyped()) left.insert(each.name);
  for (const EditControl* const edit : leftOut()) left.emplace(edit->parameterName());
  return left;
}

void PlantDevice::dropEdit(const std::string& parameter) {
  if (mHost.dataSet()) mHost.dataSet()->discardEdit(parameter);
  for (EditControl* const edit : viewEdits())
    if (edit->parameterName() == parameter && !edit->ReadOnly()) edit->restore();
}

KeptValue PlantDevice::keptValue(const EditControl& edit, const Texts& texts) {
  DataSet* const dataSet = mHost.dataSet();
  const std::string name(edit.parameterName());
  const std::string kept = dataSet && !name.empty() ? dataSet->offlineValue(name) : std::string();
  if (kept.empty()) return {};
  const bool showsKept = edit.Modified() || edit.stored() == kept;
  const std::string unit = dataSet->info(name).unit;
  const QString other = wholeValueText(mHost, texts, name, showsKept ? dataSet->value(name) : kept);
  return {showsKept ? KeptValue::Shown::Kept : KeptValue::Shown::Device, unit == edit.displayUnit() ? other : withUnit(other, texts.unit(unit))};
}

std::string PlantDevice::busyWith() {
  for (const Ref<ViewSite>& site : mHost.views().sites())
    if (!site->busyWith().empty()) return site->busyWith();
  return {};
}

}  // namespace ostrand
