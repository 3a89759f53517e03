#include "host/transcript/HostScript.h"

#include <algorithm>

#include "host/UserPrompt.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

template <class T>
T takeNext(std::deque<T>& queue, T otherwise) {
  if (queue.empty()) return otherwise;
  const T next = queue.front();
  queue.pop_front();
  return next;
}

class ScriptedAddressService : public HostObject<IAddressService> {
 public:
  explicit ScriptedAddressService(Ref<HostScript> script) : mScript(std::move(script)) {}

  bool GetBusAddress(std::uint8_t& address, std::uint8_t& second) override {
    address = mScript->address;
    second = 0;
    return mScript->addressIsOk;
  }
  bool SetBusAddress(std::uint8_t address, std::uint8_t) override {
    if (mScript->addressIsOk) mScript->address = address;
    return mScript->addressIsOk;
  }

 private:
  Ref<HostScript> mScript;
};

}  // namespace

int HostScript::takeAnswer() { return takeNext(answers, UserPrompt::kGoOn); }

bool HostScript::takeAccept() { return takeNext(accepts, true); }

void HostScript::raise(const ViewEvent& event) {
  const auto snapshot = mMessengers;
  for (ScriptedMessenger* messenger : snapshot)
    if (std::find(mMessengers.begin(), mMessengers.end(), messenger) != mMessengers.end()) messenger->raise(event);
}

void HostScript::forward(const ScriptedMessenger& from, const std::string& tag, const std::string& value) {
  const auto snapshot = mMessengers;
  for (ScriptedMessenger* messenger : snapshot) {
    const bool alive = std::find(mMessengers.begin(), mMessengers.end(), messenger) != mMessengers.end();
    if (alive && messenger != &from) messenger->raise({ViewEvent::Kind::ReceiveValue, 0, tag, value});
  }
}

ScriptedMessenger::ScriptedMessenger(Ref<HostScript> script) : mScript(std::move(script)) { mScript->mMessengers.push_back(this); }

ScriptedMessenger::~ScriptedMessenger() { std::erase(mScript->mMessengers, this); }

Ref<IAddressService> ScriptedMessenger::GetAddressService() { return Ref<IAddressService>(new ScriptedAddressService(mScript)); }

void ScriptedMessenger::raise(const ViewEvent& event) {
  const Ref<Messenger> pin(this);
  int mode = event.mode;
  mListeners.each(
      [&](MessengerEvents& listener) {
        switch (event.kind) {
          case ViewEvent::Kind::SetCommunicationMode: return listener.ViewSetCommunicationMode(event.mode);
          case ViewEvent::Kind::ReceiveValue: return listener.ViewReceiveValue(event.tag, event.value);
          case ViewEvent::Kind::SetUnits: return listener.ViewSetUnits();
          case ViewEvent::Kind::GetChanges: return listener.ViewGetChanges(mode);
        }
      },
      mScript->unhandled);
}

Result ScriptedContainer::queryInterface(const Guid& id, void** out) noexcept {
  if (out && id == INotifyStatus::kId && !mScript->offersNotifyStatus) return *out = nullptr, Result::NoInterface;
  return HostObject::queryInterface(id, out);
}

void ScriptedContainer::DTMGUIDownload(const std::string&, const std::string&, int) {
  if (!mScript->offersDownload) throw RuntimeError(RuntimeError::NoSuchMember, "the parent has no DTMGUIDownload");
}

}  // namespace ostrand
