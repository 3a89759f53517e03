#include "host/Host.h"

#include "host/DataFolder.h"

namespace ostrand {

Host::Host(Desktop& desktop, ComponentSource& components, UserPrompt& prompt, std::filesystem::path dataFolder, Views::Taps taps)
    : mDesktop(desktop),
      mPrompt(prompt),
      mDataFolder(std::move(dataFolder)),
      mUser(mDataFolder, mViews),
      mAddressService(new AddressService),
      mSamples(mObservers),
      mCommunication(desktop, mObservers, mUser.session(), mSamples,
                     [this](const Request& request, const Document& answer) { mViews.deliver(request, answer); }),
      mOutputs(mObservers, mCommunication, mSamples),
      mStopReport(desktop, mObservers, mOutputs,
                  [this](const std::string& title, const std::string& message) {
                    ITextTable& texts = *mUser.textTable();
                    const std::string tag = this->dataSet() ? this->dataSet()->current("tag") : "";
                    mPrompt.show(texts.GetText(title), (tag.empty() ? "" : tag + ": ") + texts.GetText(message));
                  }),
      mExchange(mCommunication, mUser, prompt, [this](const Change& change) { return mViews.recordOf(change.view, change.name); }),
      mEdits(*this),
      mViews(*this, components, std::move(taps)) {
  mTree = readTree({});
  mCommunication.setUnits(mUser.units());
  mUnhandled = mDesktop.unhandled.connect(
      [this](const ErrorText& error) { mObservers.tell([&](HostObserver& each) { each.errorUnhandled({}, error.number, error.description); }); });
}

Host::~Host() { mDesktop.unhandled.disconnect(mUnhandled); }

Document Host::readTree(const std::string& deviceType) const {
  const std::filesystem::path own = mDataFolder / "trees" / (deviceType + ".xml");
  const std::filesystem::path common = mDataFolder / "tree.xml";
  if (!deviceType.empty() && isThere(own)) return Document::readFile(own);
  return isThere(common) ? Document::readFile(common) : Document();
}

void Host::setDataSet(DataSet dataSet) {
  mOutputs.requireNoLoopTest();
  mTree = readTree(dataSet.deviceType());
  mCommunication.setDataSet(std::move(dataSet));
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  for (const Ref<ViewSite>& site : std::vector(mViews.sites())) site->handIn(DataPath::Offline, this->dataSet()->copy());
  mViews.liveReading().refresh();
}

void Host::connect(std::unique_ptr<Device> device) {
  mCommunication.connect(std::move(device));
  mViews.liveReading().refresh();
}

void Host::setCommunicationMode(CommunicationMode mode) {
  mCommunication.setMode(mode);
  mViews.raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(mode), {}, {}});
  mViews.liveReading().refresh();
}

std::string Host::xmlPath() const { return (mDataFolder / "").string(); }

}  // namespace ostrand
