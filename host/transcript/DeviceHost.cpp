#include "host/transcript/DeviceHost.h"

#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

constexpr double kStep = 0.01;         // seconds
constexpr double kLongestRun = 600.0;  // until nothing is under way

// What goes to the device or comes from the host is the real one's affair.
class DeviceMessenger : public ScriptedMessenger {
 public:
  DeviceMessenger(Ref<HostScript> script, Ref<Messenger> real) : ScriptedMessenger(std::move(script)), mReal(std::move(real)) {}

  void SendRequest(const std::string& xml, const std::string& name) override { mReal->SendRequest(xml, name); }
  void ReadRequest(const std::string& xml, int zero) override { mReal->ReadRequest(xml, zero); }
  bool SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) override {
    return mScript->takeAccept() && mReal->SendRequestWithStatus(xml, statusKey, first, second);
  }
  int GetCommunicationMode() override { return mReal->GetCommunicationMode(); }
  int AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText, const std::string& unit,
                const std::string& type, const std::string& contextTag) override {
    return mReal->AddChange(name, caption, oldText, newText, unit, type, contextTag);
  }
  void ForwardValue(const std::string& tag, const std::string& value) override { mReal->ForwardValue(tag, value); }
  void Subscribe(MessengerEvents& listener) override { mReal->Subscribe(listener); }
  void Unsubscribe(MessengerEvents& listener) override { mReal->Unsubscribe(listener); }

 private:
  Ref<Messenger> mReal;
};

class DeviceContainer : public ScriptedContainer {
 public:
  DeviceContainer(Ref<HostScript> script, Ref<IHostContainer> real) : ScriptedContainer(std::move(script)), mReal(std::move(real)) {}

  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override {
    ScriptedContainer::DTMGUIDownload(xml, name, one);
    mReal->DTMGUIDownload(xml, name, one);
  }

 private:
  Ref<IHostContainer> mReal;
};

}  // namespace

DeviceHost::DeviceHost(Desktop& desktop, ComponentSource& components, const std::filesystem::path& data, CallListener& listener,
                       Ref<HostScript> script, Events events)
    : mDesktop(desktop),
      mData(data),
      mEvents(std::move(events)),
      mHost(desktop, components, mPrompt, data,
            {[&listener, script](ViewSite&, Ref<Messenger> real) {
               return Ref<Messenger>(new RecordingMessenger(listener, Ref<Messenger>(new DeviceMessenger(script, std::move(real)))));
             },
             [this, &listener, script](ViewSite& site, Ref<IHostContainer> real) {
               mEvents.created(site);
               return Ref<IHostContainer>(new RecordingContainer(listener, Ref<IHostContainer>(new DeviceContainer(script, std::move(real)))));
             }}) {
  mHost.observers().add(*this);
  mHost.setCommunicationMode(static_cast<CommunicationMode>(script->mode));
  // The views convert and the host takes answers over by the same choice of units.
  script->units = mHost.user().units();
}

DeviceHost::~DeviceHost() { mHost.observers().remove(*this); }

void DeviceHost::connect(const std::string& name, unsigned seed) {
  for (const DeviceKind& kind : deviceKinds()) {
    if (kind.name != name) continue;
    const std::filesystem::path file = mData / kind.dataSet;
    mOpenText = readWholeFile(file);
    mHost.setDataSet(DataSet(Document::read(mOpenText), file));
    mHost.connect(makeDevice(name, mDesktop, mHost.dataSet()->document(), seed));
    return;
  }
  throw RuntimeError(RuntimeError::BadArgument, "no such device: " + name);
}

void DeviceHost::setFault(const std::string& name, const std::string& argument) {
  Device* const device = mHost.communication().device();
  if (!device) throwNothingThere("the device");
  device->setFault(name, argument);
}

void DeviceHost::raise(const ViewEvent& event) {
  switch (event.kind) {
    case ViewEvent::Kind::SetCommunicationMode: return mHost.setCommunicationMode(static_cast<CommunicationMode>(event.mode));
    case ViewEvent::Kind::GetChanges: mHost.edits().collect(event.mode); return;
    case ViewEvent::Kind::ReceiveValue:
    case ViewEvent::Kind::SetUnits: break;
  }
  for (const Ref<ViewSite>& site : std::vector(mHost.views().sites())) site->messenger().raise(event);
}

void DeviceHost::setOfflineData(ViewSite& site, const std::string& text) {
  if (text == mOpenText) return site.handIn(DataPath::Offline, mHost.dataSet()->copy());
  mHost.setDataSet(DataSet(Document::read(text)));
  mOpenText = text;
}

void DeviceHost::run(std::optional<double> seconds, const std::function<void(double)>& advance) {
  if (seconds) return advance(*seconds);
  double passed = 0;
  do {
    advance(kStep);
    passed += kStep;
  } while (!mHost.communication().idle() && passed < kLongestRun);
}

}  // namespace ostrand
