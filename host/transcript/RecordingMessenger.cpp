#include "host/transcript/RecordingMessenger.h"

namespace ostrand {

namespace {

template <class... Rest>
CallText told(const char* name, std::optional<std::string> xml, const std::string& first, const Rest&... rest) {
  return {name, argumentsText(first, rest...), first, std::move(xml), true};
}

CallText asked(const char* name) { return {name, {}, {}, {}, false}; }

class RecordingTextTable : public HostObject<ITextTable> {
 public:
  RecordingTextTable(CallListener& listener, Ref<ITextTable> texts) : mListener(listener), mTexts(std::move(texts)) {}

  std::string GetText(const std::string& key) override {
    const Ref<ITextTable> pin(this);
    return listenedTo(mListener, asked("GetText"), [&] { return mTexts->GetText(key); });
  }
  std::string GetLabel(const std::string& key) override {
    const Ref<ITextTable> pin(this);
    return listenedTo(mListener, asked("GetLabel"), [&] { return mTexts->GetLabel(key); });
  }
  std::string GetSectionText(const std::string& key, const std::string& section) override {
    const Ref<ITextTable> pin(this);
    return listenedTo(mListener, asked("GetSectionText"), [&] { return mTexts->GetSectionText(key, section); });
  }

 private:
  CallListener& mListener;
  Ref<ITextTable> mTexts;
};

class RecordingUnitConverter : public HostObject<IUnitConverter> {
 public:
  RecordingUnitConverter(CallListener& listener, Ref<IUnitConverter> units) : mListener(listener), mUnits(std::move(units)) {}

  bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) override {
    const Ref<IUnitConverter> pin(this);
    return listenedTo(mListener, asked("ConvertValue"), [&] { return mUnits->ConvertValue(value, from, to, result); });
  }
  bool GetUnitInfo(const std::string& name, std::string& unit) override {
    const Ref<IUnitConverter> pin(this);
    return listenedTo(mListener, asked("GetUnitInfo"), [&] { return mUnits->GetUnitInfo(name, unit); });
  }

 private:
  CallListener& mListener;
  Ref<IUnitConverter> mUnits;
};

class RecordingAddressService : public HostObject<IAddressService> {
 public:
  RecordingAddressService(CallListener& listener, Ref<IAddressService> service) : mListener(listener), mService(std::move(service)) {}

  bool GetBusAddress(std::uint8_t& address, std::uint8_t& second) override {
    const Ref<IAddressService> pin(this);
    return listenedTo(mListener, asked("GetBusAddress"), [&] { return mService->GetBusAddress(address, second); });
  }
  bool SetBusAddress(std::uint8_t address, std::uint8_t second) override {
    const Ref<IAddressService> pin(this);
    const CallText call{"SetBusAddress", argumentsText(int{address}, int{second}), std::to_string(address), {}, true};
    return listenedTo(
        mListener, call, [&] { return mService->SetBusAddress(address, second); }, [](bool done) { return toText(done); });
  }

 private:
  CallListener& mListener;
  Ref<IAddressService> mService;
};

}  // namespace

Ref<ITextTable> recordingTextTable(CallListener& listener, Ref<ITextTable> texts) {
  if (!texts) return nullptr;
  return Ref<ITextTable>(new RecordingTextTable(listener, std::move(texts)));
}

void RecordingMessenger::SendRequest(const std::string& xml, const std::string& name) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("SendRequest", xml, name), [&] { mHost->SendRequest(xml, name); });
}

void RecordingMessenger::ReadRequest(const std::string& xml, int zero) {
  const Ref<Messenger> pin(this);
  const CallText call{"ReadRequest", argumentsText(zero), std::to_string(zero), xml, true};
  listenedTo(mListener, call, [&] { mHost->ReadRequest(xml, zero); });
}

bool RecordingMessenger::SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) {
  const Ref<Messenger> pin(this);
  return listenedTo(
      mListener, told("SendRequestWithStatus", xml, statusKey, first, second),
      [&] { return mHost->SendRequestWithStatus(xml, statusKey, first, second); }, [](bool accepted) { return toText(accepted); });
}

int RecordingMessenger::GetCommunicationMode() {
  const Ref<Messenger> pin(this);
  return listenedTo(mListener, asked("GetCommunicationMode"), [&] { return mHost->GetCommunicationMode(); });
}

void RecordingMessenger::SetParameterStatus(const std::string& name, const std::string& word) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("SetParameterStatus", {}, name, word), [&] { mHost->SetParameterStatus(name, word); });
}

int RecordingMessenger::AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText,
                                  const std::string& unit, const std::string& type, const std::string& contextTag) {
  const Ref<Messenger> pin(this);
  return listenedTo(mListener, told("AddChange", {}, name, caption, oldText, newText, unit, type, contextTag),
                    [&] { return mHost->AddChange(name, caption, oldText, newText, unit, type, contextTag); });
}

void RecordingMessenger::ForwardValue(const std::string& tag, const std::string& value) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("ForwardValue", {}, tag, value), [&] { mHost->ForwardValue(tag, value); });
}

Ref<IAddressService> RecordingMessenger::GetAddressService() {
  const Ref<Messenger> pin(this);
  const Ref<IAddressService> service = listenedTo(mListener, asked("GetAddressService"), [&] { return mHost->GetAddressService(); });
  return service ? Ref<IAddressService>(new RecordingAddressService(mListener, service)) : nullptr;
}

Ref<IUnitConverter> RecordingMessenger::GetUnitConverter() {
  const Ref<Messenger> pin(this);
  const Ref<IUnitConverter> units = listenedTo(mListener, asked("GetUnitConverter"), [&] { return mHost->GetUnitConverter(); });
  return units ? Ref<IUnitConverter>(new RecordingUnitConverter(mListener, units)) : nullptr;
}

Ref<ITextTable> RecordingMessenger::GetTextTable() {
  const Ref<Messenger> pin(this);
  return recordingTextTable(mListener, listenedTo(mListener, asked("GetTextTable"), [&] { return mHost->GetTextTable(); }));
}

Document RecordingMessenger::GetTreeDocument() {
  const Ref<Messenger> pin(this);
  return listenedTo(
      mListener, asked("GetTreeDocument"), [&] { return mHost->GetTreeDocument(); },
      [](const Document& tree) { return tree ? tree.xml() : std::string(); });
}

int RecordingMessenger::GetUserLevel() {
  const Ref<Messenger> pin(this);
  return listenedTo(
      mListener, asked("GetUserLevel"), [&] { return mHost->GetUserLevel(); }, [](int level) { return toText(level); });
}

bool RecordingMessenger::GetMaximizeAllowed() {
  const Ref<Messenger> pin(this);
  return listenedTo(
      mListener, asked("GetMaximizeAllowed"), [&] { return mHost->GetMaximizeAllowed(); }, [](bool allowed) { return toText(allowed); });
}

int RecordingMessenger::AskUser(const std::string& title, const std::string& message) {
  const Ref<Messenger> pin(this);
  return listenedTo(
      mListener, told("AskUser", {}, title, message), [&] { return mHost->AskUser(title, message); }, [](int answer) { return toText(answer); });
}

void RecordingMessenger::ShowMessage(const std::string& title, const std::string& message) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("ShowMessage", {}, title, message), [&] { mHost->ShowMessage(title, message); });
}

void RecordingMessenger::SetStatusLine(const std::string& text, const std::string& code) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("SetStatusLine", {}, text, code), [&] { mHost->SetStatusLine(text, code); });
}

void RecordingMessenger::SetProgress(const std::string& text, int first, int second) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("SetProgress", {}, text, first, second), [&] { mHost->SetProgress(text, first, second); });
}

void RecordingMessenger::FocusOut() {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, {"FocusOut", {}, {}, {}, true}, [&] { mHost->FocusOut(); });
}

void RecordingMessenger::ReportError(const std::string& prefix, int number, const std::string& description) {
  const Ref<Messenger> pin(this);
  listenedTo(mListener, told("ReportError", {}, prefix, number, description), [&] { mHost->ReportError(prefix, number, description); });
}

void RecordingMessenger::Log(int category, const std::string& text) {
  const Ref<Messenger> pin(this);
  const CallText call{"Log", argumentsText(category, text), std::to_string(category), {}, true};
  listenedTo(mListener, call, [&] { mHost->Log(category, text); });
}

}  // namespace ostrand
