#include "host/Views.h"

#include <algorithm>

#include "host/AnswerRoutes.h"
#include "host/Host.h"
#include "platform/controls/Control.h"

namespace ostrand {

namespace {

// The frame whose values live.
constexpr std::string_view kLiveFrame = "monitoringVariables";

// The editor behind several values that bears this Tag, here or in a nested view.
ITaviDataEditor* editorIn(const ControlCollection& controls, const std::string& tag) {
  for (Control* const control : controls) {
    ITaviDataEditor* const editor = control->dataEditor();
    if (editor && !isEdit(control->kind()) && control->Tag() == tag) return editor;
    ITaviView* const nested = control->view();
    if (ITaviDataEditor* const found = nested ? editorIn(nested->GetControls(), tag) : nullptr) return found;
  }
  return nullptr;
}

}  // namespace

Views::Views(Host& host, ComponentSource& components, Taps taps)
    : mHost(host),
      mComponents(components),
      mTaps(std::move(taps)),
      mLiveReading(
          host.desktop(), host.communication(), [this] { return liveGroup(); },
          [this](const std::string& parameter) { return mHost.edits().isShown(parameter); }) {}

Views::~Views() {
  while (!mSites.empty()) release(*mSites.back());
  for (const Ref<ViewSite>& site : mLeaving) site->messenger().detach();
}

// --- the life of a view

std::string Views::uniqueName(const std::string& className) const {
  std::string name = className;
  for (int i = 2; std::any_of(mSites.begin(), mSites.end(), [&](const Ref<ViewSite>& site) { return site->name() == name; }); ++i)
    name = className + " " + std::to_string(i);
  return name;
}

Ref<ViewSite> Views::create(const std::string& className, const std::string& tag) {
  const Ref<IObject> component = mComponents.create(className);
  const Ref<ViewSite> site(new ViewSite(mHost, className, uniqueName(className), component));
  mSites.push_back(site);
  try {
    site->place(tag);
  } catch (...) {
    std::erase(mSites, site);
    site->close();
    throw;
  }
  return site;
}

Ref<ViewSite> Views::place(const std::string& className, const std::string& tag) {
  const Ref<ViewSite> site = create(className, tag);
  site->setMessenger();
  site->localize();
  return site;
}

void Views::open(ViewSite& site, const std::string& key, DataPath path) {
  const Ref<ViewSite> pin(&site);
  const Communication& communication = mHost.communication();
  if (!mFront) mFront = pin;
  site.select(key);
  if (const DataSet* const open = mHost.dataSet()) site.handIn(path, open->copy());
  const CommunicationMode acceptance = communication.isLocal() ? CommunicationMode::LocalAcceptance : CommunicationMode::Download;
  site.messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(acceptance), {}, {}});
  if (communication.isBusy()) site.messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(CommunicationMode::Busy), {}, {}});
  site.requestFocus();
  mLiveReading.refresh();
}

void Views::showsFront(ViewSite& site) {
  mFront = Ref<ViewSite>(&site);
  mLiveReading.refresh();
}

bool Views::bringToFront(ViewSite& site, const std::string& key) {
  const Ref<ViewSite> pin(&site);
  if (const Ref<ViewSite> before = mFront; before && !before->leave()) return false;
  if (!pin->alive()) return false;
  mFront = pin;
  site.select(key);
  site.requestFocus();
  mLiveReading.refresh();
  return true;
}

void Views::release(ViewSite& site) {
  const Ref<ViewSite> pin(&site);
  std::erase(mSites, pin);
  if (mFront == pin) mFront = nullptr;
  std::erase_if(mLeaving, [](const Ref<ViewSite>& each) { return !each->leaving(); });
  if (site.leaving()) mLeaving.push_back(pin);
  site.close();
  mHost.edits().forget(site.name());
  mLiveReading.refresh();
}

ITaviView* Views::viewOf(const std::string& name) const {
  const auto site = std::find_if(mSites.begin(), mSites.end(), [&](const Ref<ViewSite>& each) { return each->name() == name; });
  return site == mSites.end() ? nullptr : (*site)->view();
}

std::vector<MessageItem> Views::recordOf(const std::string& view, const std::string& tag) const {
  const Ref<ITaviView> open(viewOf(view));
  const Ref<ITaviDataEditor> editor(open ? editorIn(open->GetControls(), tag) : nullptr);
  return editor ? itemsBelow(editor->GetXmlItem(false)) : std::vector<MessageItem>();
}

void Views::setLiveReading(bool on) {
  mLive = on;
  mLiveReading.refresh();
}

std::string Views::liveGroup() const { return mLive && mFront && mFront->selected() == kLiveFrame ? std::string(kLiveFrame) : ""; }

// --- what they hear

void Views::raise(const ViewEvent& event) {
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->messenger().raise(event);
}

void Views::forward(const HostMessenger& from, const std::string& tag, const std::string& value) {
  mHost.observers().tell([&](HostObserver& each) { each.valueForwarded(from.view(), tag, value); });
  for (const Ref<ViewSite>& site : std::vector(mSites))
    if (&site->messenger() != &from) site->messenger().raise({ViewEvent::Kind::ReceiveValue, 0, tag, value});
}

void Views::deliver(const Request& request, const Document& answer) {
  const AnswerRoutes routes(request, answer, mHost.dataSet());
  for (const Ref<ViewSite>& site : std::vector(mSites))
    if (const Document part = routes.forView(site->name())) site->handIn(routes.path(), part);
}

void Views::localize() {
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->localize();
}

void Views::renewMessengers() {
  for (const Ref<ViewSite>& site : std::vector(mSites)) {
    // A view reads the level when it gets its Messenger, and only then.
    site->setMessenger();
    if (mHost.communication().isBusy() && site->alive())
      site->messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(CommunicationMode::Busy), {}, {}});
  }
}

// --- for the sites

Ref<Messenger> Views::messengerFor(ViewSite& site) const {
  const Ref<Messenger> own(&site.messenger());
  return mTaps.messenger ? mTaps.messenger(site, own) : own;
}

Ref<IHostContainer> Views::containerFor(ViewSite& site) const {
  const Ref<IHostContainer> own(&site);
  return mTaps.container ? mTaps.container(site, own) : own;
}

}  // namespace ostrand
