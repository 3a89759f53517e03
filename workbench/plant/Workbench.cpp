#include "workbench/plant/Workbench.h"

#include <algorithm>

#include "platform/base/RuntimeError.h"

namespace ostrand {

// Tells the workbench what changes about one device.
class Workbench::Watch : private HostObserver {
 public:
  Watch(Workbench& workbench, PlantDevice& device) : mWorkbench(workbench), mDevice(device) {
    mDevice.host().observers().add(*this);
    mDevice.status().changed.connect([this] { mWorkbench.valuesChanged(); });
  }
  ~Watch() { mDevice.host().observers().remove(*this); }

 private:
  void dataSetChanged() override { mWorkbench.valuesChanged(); }
  void parameterStatus(const std::string&, const std::string&, const std::string&) override { mWorkbench.valuesChanged(); }

  Workbench& mWorkbench;
  PlantDevice& mDevice;
};

Workbench::Workbench(std::filesystem::path dataFolder, ComponentCatalog* components)
    : mDataFolder(std::move(dataFolder)), mComponents(components ? *components : mRegistered) {
  const PlantDevice::Plant plant{mDesktop, mComponents, mPrompt, mDataFolder, mLog};
  for (const DeviceKind& kind : deviceKinds()) {
    mDevices.push_back(std::make_unique<PlantDevice>(plant, kind));
    mWatches.push_back(std::make_unique<Watch>(*this, *mDevices.back()));
  }
  if (mDevices.empty()) throwNothingThere("a simulated device");
  mCurrent = mDevices.front().get();
  mSettings.language = host().user().session().language;
  mSettings.locale = mDesktop.locale().name;
  mTexts = Texts(host().user().textTable(), mSettings.language);
  mDesktop.onDebugOutput = [this](const std::string& text) { mCurrent->tap().note(ConversationLog::Kind::Log, text); };
}

Workbench::~Workbench() = default;

bool Workbench::show(PlantDevice& device, const std::string& branch, const std::string& frame) {
  if (&device != mCurrent) {
    if (const Ref<ViewSite> front(host().views().front()); front && !front->leave()) return false;
    host().views().setLiveReading(false);
  }
  if (!device.show(branch, frame)) return false;
  if (&device == mCurrent) return true;
  mCurrent = &device;
  host().views().setLiveReading(true);
  deviceChanged();
  return true;
}

PlantDevice& Workbench::deviceFor(const DataSet& dataSet) const {
  const auto fitting = std::find_if(mDevices.begin(), mDevices.end(), [&](const auto& each) { return each->kind().name == dataSet.deviceType(); });
  return fitting == mDevices.end() ? *mCurrent : **fitting;
}

void Workbench::openDataSet(const std::filesystem::path& file) {
  DataSet dataSet = DataSet::open(file);
  PlantDevice& device = deviceFor(dataSet);
  device.host().setDataSet(std::move(dataSet));
}

void Workbench::setLanguage(const std::string& language) {
  // Each host reads its own copy; the first one finds out whether it can be read.
  for (const auto& device : mDevices) {
    device->host().user().textTables().table(language);
    device->recordings().setLanguage(language);
    device->host().user().setLanguage(language);
  }
  mSettings.language = language;
  mTexts = Texts(host().user().textTable(), language);
  settingsChanged();
}

void Workbench::setLocale(const std::string& name) {
  if (!mDesktop.setLocale(name)) throw RuntimeError(RuntimeError::BadArgument, "no such locale: \"" + name + "\"");
  mSettings.locale = name;
  for (const auto& device : mDevices) {
    device->recordings().setLocale(name);
    // Edits write their numbers anew when the units change.
    for (const Ref<ViewSite>& site : std::vector(device->host().views().sites())) site->messenger().raise({ViewEvent::Kind::SetUnits, 0, {}, {}});
  }
  settingsChanged();
}

void Workbench::setLevel(int level) {
  mSettings.level = level;
  for (const auto& device : mDevices) device->host().user().setLevel(level);
  settingsChanged();
}

void Workbench::setUnit(const std::string& quantity, const std::string& unit) {
  for (const auto& device : mDevices) {
    device->recordings().setUnit(quantity, unit);
    device->host().user().setUnit(quantity, unit);
  }
  mSettings.units[quantity] = unit;
  settingsChanged();
}

void Workbench::setTheme(Theme::Kind kind, double scale) {
  mSettings.theme = kind;
  mSettings.scale = scale;
  settingsChanged();
}

void Workbench::setPriorities(const std::vector<Ne107>& priorities) {
  mSettings.priorities = priorities;
  settingsChanged();
}

}  // namespace ostrand
