#include "host/transcript/TranscriptStage.h"

#include <algorithm>

#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/types/IPlaceable.h"

namespace ostrand {

namespace {

const ControlCollection* controlsOf(IObject* object) {
  if (const Ref<ITaviView> view = query<ITaviView>(object)) return &view->GetControls();
  const Ref<IPlaceable> placeable = query<IPlaceable>(object);
  const auto* const component = dynamic_cast<Component*>(placeable.get());
  return component ? &component->controls() : nullptr;
}

}  // namespace

TranscriptStage::TranscriptStage(ComponentSource& components, const std::filesystem::path& data, std::function<void(const TranscriptInput&)> carryOut)
    : output(viewsFor(std::move(carryOut))),
      files(data, output.hiddenFolders),
      desktop(output),
      script(new HostScript),
      texts(files.data() / "texts"),
      mComponents(components) {
  const std::filesystem::path unitFile = files.data() / "units.xml";
  std::error_code ignored;
  units = std::filesystem::exists(unitFile, ignored) ? UnitService::open(unitFile) : Ref<UnitService>(new UnitService);
  script->texts = texts.table("keys");
  script->units = units;
  script->xmlPath = [this] { return (files.hostFolder() / "").string(); };
  script->unhandled = [this](const ErrorText& error) { output.printUnhandled(error); };
  desktop.findFile = [this](const std::string& name) {
    const auto file = files.find(name);
    return file ? *file : files.written(name);
  };
  desktop.newFile = [this](const std::string& name) { return files.written(name); };
}

TranscriptStage::~TranscriptStage() { end(); }

TranscriptOutput::Views TranscriptStage::viewsFor(std::function<void(const TranscriptInput&)> carryOut) {
  return {[this](const Control& control) {
            for (const auto& each : mViews)
              if (const ControlCollection* const all = controlsOf(each->object.get()))
                if (std::string name = nameOfControl(*all, control); !name.empty()) return name;
            return control.name();
          },
          [this](const Control& control) {
            return std::any_of(mViews.begin(), mViews.end(), [&](const auto& each) {
              const ControlCollection* const all = controlsOf(each->object.get());
              return all && !all->empty() && all->front()->owner() == control.owner();
            });
          },
          [this](const std::string& name) -> const Control* {
            const ControlCollection* const all = mCurrent ? controlsOf(mCurrent->object.get()) : nullptr;
            return all ? findControl(*all, name) : nullptr;
          },
          std::move(carryOut)};
}

// --- views

TranscriptStage::View& TranscriptStage::current() {
  if (!mCurrent) throw RuntimeError(RuntimeError::NothingThere, "there is no view");
  return *mCurrent;
}

const ControlCollection& TranscriptStage::controls() {
  if (const ControlCollection* const found = controlsOf(current().object.get())) return *found;
  throw RuntimeError(RuntimeError::NoSuchMember, current().className + " has no controls");
}

Control& TranscriptStage::control(const std::string& name) {
  if (Control* const found = findControl(controls(), name)) return *found;
  output.print("NoSuchControl", name);
  throw InputEnded();
}

const Component* TranscriptStage::component() {
  const ControlCollection& all = controls();
  return all.empty() ? nullptr : all.front()->owner();
}

void TranscriptStage::create(const std::string& className, const std::string& name, const std::string& tag) {
  auto made = std::make_unique<View>();
  made->name = name;
  made->className = className;
  mCurrent = nullptr;
  try {
    if (device) {
      mMade = std::move(made);
      device->host().views().create(className, tag);
      return;
    }
    made->object = mComponents.create(className);
  } catch (const RuntimeError& error) {
    if (error.number() != RuntimeError::BadArgument) throw;
    return output.print("NoSuchClass", className);
  }
  made->messenger = Ref<Messenger>(new RecordingMessenger(output, Ref<Messenger>(new ScriptedMessenger(script))));
  const Ref<IHostContainer> container(new RecordingContainer(output, Ref<IHostContainer>(new ScriptedContainer(script))));
  // From here on it can be asked for: a trace begins with its first step.
  mCurrent = mViews.emplace_back(std::move(made)).get();
  const Ref<IPlaceable> placeable = need<IPlaceable>("IPlaceable");
  listen(placeable);
  onView([&] { placeable->Place(desktop, container, tag); });
}

void TranscriptStage::listen(const Ref<IPlaceable>& placeable) {
  if (auto* const component = dynamic_cast<Component*>(placeable.get()))
    component->listenToEvents([this](std::string_view event, const MemberArguments& arguments) {
      CallText text{std::string(event), {}, {}, {}, true};
      for (const Value& each : arguments) text.arguments += (text.arguments.empty() ? "" : " ") + toText(each);
      if (!arguments.empty() && std::holds_alternative<std::string>(arguments.front())) text.firstArgument = asText(arguments.front());
      listenedTo(output, text, [] {});
    });
}

void TranscriptStage::turnTo(const std::string& name) {
  const auto found = std::find_if(mViews.rbegin(), mViews.rend(), [&](const auto& each) { return each->name == name; });
  if (found == mViews.rend()) throw RuntimeError(RuntimeError::BadArgument, "there is no view " + name);
  mCurrent = found->get();
}

void TranscriptStage::forget(View& view) {
  if (mCurrent == &view) mCurrent = nullptr;
  const auto at = std::find_if(mViews.begin(), mViews.end(), [&](const auto& each) { return each.get() == &view; });
  // The component may still reach us while it dies.
  const std::unique_ptr<View> leaving = std::move(*at);
  mViews.erase(at);
}

void TranscriptStage::endView(View& view) {
  if (const Ref<ViewSite> site = view.site) return device->host().views().release(*site);
  onView([placeable = query<IPlaceable>(view.object.get())] { placeable->Terminate(); });
}

void TranscriptStage::terminate() {
  View& view = current();
  need<IPlaceable>("IPlaceable");
  endView(view);
  // What came in between may have ended it already.
  if (mCurrent == &view) forget(view);
}

void TranscriptStage::end() {
  output.end();
  while (!mViews.empty()) {
    View& view = *mViews.back();
    endView(view);
    forget(view);
  }
  device.reset();
}

// --- the host

void TranscriptStage::connect(const std::string& deviceName, unsigned seed) {
  if (device) return device->connect(deviceName, seed);
  if (!mViews.empty()) throw RuntimeError(RuntimeError::PermissionDenied, "a device comes before the first view");
  const auto created = [this](ViewSite& site) {
    if (!mMade) return;
    mMade->site = Ref<ViewSite>(&site);
    mMade->object = Ref<IObject>(site.component());
    mMade->messenger = device->messengerOf(site);
    mCurrent = mViews.emplace_back(std::move(mMade)).get();
    listen(query<IPlaceable>(mCurrent->object.get()));
  };
  const auto handedIn = [this](const Document& each) { documents.push_back(each); };
  auto host =
      std::make_unique<DeviceHost>(desktop, mComponents, files.data(), output, script, DeviceHost::Events{script->unhandled, handedIn, created});
  host->connect(deviceName, seed);
  device = std::move(host);
  for (const UnitService::Quantity& quantity : units->quantities())
    if (!quantity.chosen.empty()) device->host().user().units()->choose(quantity.name, quantity.chosen);
  units = device->host().user().units();
}

void TranscriptStage::raise(const ViewEvent& event) {
  if (device)
    device->raise(event);
  else
    script->raise(event);
}

}  // namespace ostrand
