#include "host/transcript/RecordedComponents.h"

#include <exception>
#include <optional>

#include "host/HostObject.h"
#include "host/transcript/MessengerListeners.h"
#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/base/NumberText.h"
#include "platform/types/IPlaceable.h"
#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand {

namespace {

// Stands before the machine: waits and file dialogs are calls of the view.
class RecordedDesktop : public Desktop {
 public:
  RecordedDesktop(TranscriptRecorder& recorder, Desktop& desktop) : mRecorder(recorder), mDesktop(desktop) {}

  LocalTime now() const override { return mDesktop.now(); }
  void wait(double seconds) override {
    const std::string length = plainText(seconds, '.');
    listenedTo(mRecorder, {"wait", length, length, {}, false}, [&] { mDesktop.wait(seconds); });
  }
  TimerId schedule(double seconds, std::function<void()> work) override { return mDesktop.schedule(seconds, std::move(work)); }
  void cancel(TimerId timer) override { mDesktop.cancel(timer); }
  bool keyDown(Key key) const override { return mDesktop.keyDown(key); }
  const Locale& locale() const override { return mDesktop.locale(); }
  std::optional<std::filesystem::path> openDialog(const FileDialog& dialog) override {
    return ask("OpenDialog", dialog, [&] { return mDesktop.openDialog(dialog); });
  }
  std::optional<std::filesystem::path> saveDialog(const FileDialog& dialog) override {
    return ask("SaveDialog", dialog, [&] { return mDesktop.saveDialog(dialog); });
  }
  void debugOutput(const std::string& text) override {
    listenedTo(mRecorder, {"DebugTrace", inQuotes(text), text, {}, true}, [&] { mDesktop.debugOutput(text); });
  }

 private:
  template <class Body>
  std::optional<std::filesystem::path> ask(const char* call, const FileDialog& dialog, Body body) {
    const CallText text{call, argumentsText(dialog.title, dialog.filter, dialog.extension, dialog.name), dialog.title, {}, true};
    return listenedTo(mRecorder, text, body, [](const auto& file) { return file ? inQuotes(file->filename().string()) : "cancel"; });
  }

  TranscriptRecorder& mRecorder;
  Desktop& mDesktop;
};

// Stands before a component: every call of the host is an input.
class RecordedComponent : public HostObject<IPlaceable, ITaviView, ITaviDataUser, ITaviComponent, ILocalizable, ITaviDeviceSpecific> {
 public:
  RecordedComponent(std::string className, Ref<IObject> component, TranscriptRecorder& recorder)
      : mClassName(std::move(className)), mComponent(std::move(component)), mRecorder(recorder) {}

  // What the component does not have is not offered.
  Result queryInterface(const Guid& id, void** out) noexcept override {
    void* theirs = nullptr;
    const Result result = mComponent->queryInterface(id, &theirs);
    if (result != Result::Ok) {
      if (out) *out = nullptr;
      return result;
    }
    mComponent->release();
    return HostObject::queryInterface(id, out);
  }

  void Place(Desktop& desktop, const Ref<IHostContainer>& parent, const std::string& tag) override {
    record("create " + mClassName + (tag.empty() ? "" : " tag=" + TranscriptRecorder::word(tag)), [&] {
      mDesktop.emplace(mRecorder, desktop);
      as<IPlaceable>()->Place(*mDesktop, parent, tag);
    });
  }
  void Resize(int width, int height) override {
    record("resize " + std::to_string(width) + " " + std::to_string(height), [&] { as<IPlaceable>()->Resize(width, height); });
  }
  void Terminate() override {
    record("terminate", [&] { as<IPlaceable>()->Terminate(); });
  }

  const ControlCollection& GetControls() override { return as<ITaviView>()->GetControls(); }
  Ref<Messenger> GetMessenger() override { return as<ITaviView>()->GetMessenger(); }
  std::string GetSelectedView() override { return as<ITaviView>()->GetSelectedView(); }
  void SetSelectedView(const std::string& key) override {
    record("select " + TranscriptRecorder::word(key), [&] { as<ITaviView>()->SetSelectedView(key); });
  }
  bool LeaveSelectedView() override {
    bool may = false;
    record("leave", [&] {
      may = as<ITaviView>()->LeaveSelectedView();
      mRecorder.put(toText(may));
    });
    return may;
  }
  void RequestFocus() override {
    record("focus", [&] { as<ITaviView>()->RequestFocus(); });
  }
  void PrepareToRelease() override {
    record("release", [&] { as<ITaviView>()->PrepareToRelease(); });
  }

  void SetErrorData(const Document& doc) override {
    record(
        "error", [&] { as<ITaviDataUser>()->SetErrorData(doc); }, doc.xml());
  }
  void SetImportData(const Document& doc) override {
    record(
        "import", [&] { as<ITaviDataUser>()->SetImportData(doc); }, doc.xml());
  }
  void SetOfflineData(const Document& doc) override {
    record(
        "offline", [&] { as<ITaviDataUser>()->SetOfflineData(doc); }, doc.xml());
  }
  void SetOnlineData(const Document& doc) override {
    record(
        "online", [&] { as<ITaviDataUser>()->SetOnlineData(doc); }, doc.xml());
  }

  void SetMessenger(const Ref<Messenger>& messenger) override {
    record("messenger", [&] { as<ITaviComponent>()->SetMessenger(messenger); });
  }
  void Localize(const Ref<ITextTable>& textTable) override {
    record("localize " + TranscriptRecorder::word(mRecorder.language),
           [&] { as<ILocalizable>()->Localize(recordingTextTable(mRecorder, textTable)); });
  }

  Picture GetDeviceImage(const std::string& argument) override { return as<ITaviDeviceSpecific>()->GetDeviceImage(argument); }
  Picture GetDeviceLogo(const std::string& argument) override { return as<ITaviDeviceSpecific>()->GetDeviceLogo(argument); }

 private:
  template <class I>
  Ref<I> as() const {
    return query<I>(mComponent.get());
  }
  template <class Body>
  void record(const std::string& line, Body body, const std::optional<std::string>& document = std::nullopt) {
    const Ref<IPlaceable> pin(this);
    const TranscriptRecorder::Input input = mRecorder.input(line, document);
    try {
      body();
    } catch (...) {
      mRecorder.unhandled(currentError());
      throw;
    }
  }

  std::string mClassName;
  std::optional<RecordedDesktop> mDesktop;  // outlives the component
  Ref<IObject> mComponent;
  TranscriptRecorder& mRecorder;
};

// Stands before the host's Messenger: an event is one input, however many listen.
class EventRecorder : public RecordingMessenger, private MessengerEvents {
 public:
  EventRecorder(TranscriptRecorder& recorder, const Ref<Messenger>& host) : RecordingMessenger(recorder, host), mRecorder(recorder), mHost(host) {}

  void Subscribe(MessengerEvents& listener) override {
    if (mListeners.empty()) mHost->Subscribe(*this);
    mListeners.add(listener);
  }
  void Unsubscribe(MessengerEvents& listener) override {
    mListeners.remove(listener);
    if (mListeners.empty()) mHost->Unsubscribe(*this);
  }

 protected:
  ~EventRecorder() override {
    if (!mListeners.empty()) mHost->Unsubscribe(*this);
  }

 private:
  void ViewSetCommunicationMode(int mode) override {
    raise("mode " + std::to_string(mode), [&](MessengerEvents& each) { each.ViewSetCommunicationMode(mode); });
  }
  void ViewReceiveValue(const std::string& tag, const std::string& value) override {
    raise("receive " + TranscriptRecorder::word(tag) + " " + inQuotes(value), [&](MessengerEvents& each) { each.ViewReceiveValue(tag, value); });
  }
  void ViewSetUnits() override {
    raise("units", [](MessengerEvents& each) { each.ViewSetUnits(); });
  }
  void ViewGetChanges(int& mode) override {
    raise("changes " + std::to_string(mode), [&](MessengerEvents& each) { each.ViewGetChanges(mode); });
  }

  template <class Handler>
  void raise(const std::string& line, Handler handler) {
    const Ref<Messenger> pin(this);
    const TranscriptRecorder::Input input = mRecorder.input(line);
    std::exception_ptr first;
    mListeners.each(handler, [&](const ErrorText& error) {
      mRecorder.unhandled(error);
      if (!first) first = std::current_exception();
    });
    // The host has its own way with it.
    if (first) std::rethrow_exception(first);
  }

  TranscriptRecorder& mRecorder;
  Ref<Messenger> mHost;
  MessengerListeners mListeners;
};

}  // namespace

Ref<IObject> RecordedComponents::create(const std::string& className) {
  const Ref<IObject> component = mComponents.create(className);
  TranscriptRecorder& recorder = mRecorderFor(className);
  const Ref<IPlaceable> recorded(new RecordedComponent(className, component, recorder));
  mRecorders[static_cast<IObject*>(recorded.get())] = &recorder;
  return Ref<IObject>(recorded);
}

TranscriptRecorder* RecordedComponents::recorderOf(const IObject* component) const {
  const auto found = mRecorders.find(component);
  return found == mRecorders.end() ? nullptr : found->second;
}

Views::Taps RecordedComponents::taps() {
  return {[this](ViewSite& site, Ref<Messenger> host) -> Ref<Messenger> {
            TranscriptRecorder* const recorder = recorderOf(site.component());
            return recorder ? Ref<Messenger>(new EventRecorder(*recorder, host)) : host;
          },
          [this](ViewSite& site, Ref<IHostContainer> host) -> Ref<IHostContainer> {
            TranscriptRecorder* const recorder = recorderOf(site.component());
            return recorder ? Ref<IHostContainer>(new RecordingContainer(*recorder, host)) : host;
          }};
}

}  // namespace ostrand
