#include "workbench/plant/PlantDevice.h"

#include <algorithm>

#include "host/PendingEdits.h"
#include "platform/base/RuntimeError.h"

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
  mRecordings.setLanguage(mHost.session().language);
  mRecordings.setLocale(plant.desktop.locale().name);
  mHost.openDataSet(plant.dataFolder / std::string(kind.dataSet));
  switchOn();
}

PlantDevice::~PlantDevice() {
  while (!mHost.sites().empty()) mHost.release(*mHost.sites().back());
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
  for (const Ref<ViewSite>& site : mHost.sites())
    if (site->tag() == branch) return site;
  return nullptr;
}

bool PlantDevice::show(const std::string& branch, const std::string& frame) {
  if (const Ref<ViewSite> site = siteOf(branch)) return mHost.bringToFront(*site, frame);
  if (const Ref<ViewSite> front(mHost.front()); front && !front->leave()) return false;
  const Ref<ViewSite> site = mHost.place(classFor(branch), branch);
  mHost.showsFront(*site);
  mHost.open(*site, frame);
  return true;
}

std::string PlantDevice::branch() { return mHost.front() ? mHost.front()->tag() : std::string(); }

std::string PlantDevice::frame() { return mHost.front() ? mHost.front()->selected() : std::string(); }

void PlantDevice::reopen() {
  const std::string branch = this->branch();
  const std::string frame = this->frame();
  if (branch.empty()) return;
  mHost.release(*mHost.front());
  show(branch, frame);
}

std::string PlantDevice::transcript() {
  const TranscriptRecorder* const recorder = mHost.front() ? mRecordings.of(*mHost.front()) : nullptr;
  return recorder ? recorder->text() : std::string();
}

bool PlantDevice::hasPendingEdits() { return viewsHaveEdits() || (mHost.dataSet() && !mHost.dataSet()->edited().empty()); }

bool PlantDevice::hasUnsavedEdits() { return viewsHaveEdits() || (mHost.dataSet() && mHost.dataSet()->changed() && !mHost.dataSet()->edited().empty()); }

bool PlantDevice::viewsHaveEdits() {
  return std::any_of(mHost.sites().begin(), mHost.sites().end(), [](const Ref<ViewSite>& site) { return !pendingEdits(site->view()).empty(); });
}

std::string PlantDevice::busyWith() {
  for (const Ref<ViewSite>& site : mHost.sites())
    if (!site->busyWith().empty()) return site->busyWith();
  return {};
}

}  // namespace ostrand
