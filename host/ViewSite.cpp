#include "host/ViewSite.h"

#include "host/Host.h"
#include "platform/base/RuntimeError.h"
#include "platform/types/Query.h"

namespace ostrand {

template <class F>
void ViewSite::guarded(F&& call) const {
  const Ref<ViewSite> pin(const_cast<ViewSite*>(this));
  const Ref<IObject> component = mComponent;
  try {
    std::forward<F>(call)();
  } catch (...) {
    const ErrorText error = currentError();
    if (mHost) mHost->observers().tell([&](HostObserver& each) { each.errorUnhandled(mName, error.number, error.description); });
  }
}

ViewSite::ViewSite(Host& host, std::string className, std::string name, Ref<IObject> component)
    : mHost(&host),
      mClassName(std::move(className)),
      mName(std::move(name)),
      mMessenger(new HostMessenger(host, mName)),
      mComponent(std::move(component)),
      mPlaceable(query<IPlaceable>(mComponent.get())),
      mView(query<ITaviView>(mComponent.get())),
      mDataUser(query<ITaviDataUser>(mComponent.get())),
      mTaviComponent(query<ITaviComponent>(mComponent.get())),
      mLocalizable(query<ILocalizable>(mComponent.get())) {}

Host& ViewSite::host() const {
  if (!mHost) throwNothingThere("the host");
  return *mHost;
}

// --- the life of the component

void ViewSite::place(const std::string& tag) {
  if (!mPlaceable) throw RuntimeError(RuntimeError::BadArgument, mClassName + " is no component that can be placed");
  mTag = tag;
  host().observers().tell([&](HostObserver& each) { each.viewPlaced(*this); });
  guarded([&] { mPlaceable->Place(host().desktop(), host().views().containerFor(*this), tag); });
}

void ViewSite::setMessenger() {
  if (mTaviComponent) guarded([&] { mTaviComponent->SetMessenger(host().views().messengerFor(*this)); });
}

void ViewSite::localize() {
  if (!mLocalizable) return;
  host().observers().tell([&](HostObserver& each) { each.viewLocalized(*this, host().user().session().language); });
  guarded([&] { mLocalizable->Localize(host().user().textTable()); });
}

void ViewSite::select(const std::string& key) {
  if (!mView) return;
  host().observers().tell([&](HostObserver& each) { each.viewSelected(*this, key); });
  guarded([&] { mView->SetSelectedView(key); });
}

void ViewSite::handIn(DataPath path, const Document& document) {
  if (!mDataUser) return;
  host().observers().tell([&](HostObserver& each) { each.viewHandedIn(*this, path, document); });
  guarded([&] {
    switch (path) {
      case DataPath::Import: mDataUser->SetImportData(document); break;
      case DataPath::Offline: mDataUser->SetOfflineData(document); break;
      case DataPath::Online: mDataUser->SetOnlineData(document); break;
      case DataPath::Error: mDataUser->SetErrorData(document); break;
    }
  });
}

void ViewSite::requestFocus() {
  if (!mView) return;
  host().observers().tell([&](HostObserver& each) { each.viewFocused(*this); });
  guarded([&] { mView->RequestFocus(); });
}

void ViewSite::resize(int width, int height) {
  if (!mPlaceable) return;
  host().observers().tell([&](HostObserver& each) { each.viewResized(*this, width, height); });
  guarded([&] { mPlaceable->Resize(width, height); });
}

bool ViewSite::leave() {
  if (!mView) return true;
  host().observers().tell([&](HostObserver& each) { each.viewAskedToLeave(*this); });
  bool may = true;
  const Ref<ViewSite> pin(this);
  const Ref<ITaviView> view = mView;
  ++mLeaving;
  guarded([&] { may = view->LeaveSelectedView(); });
  if (--mLeaving == 0 && !alive()) mMessenger->detach();
  return may;
}

std::string ViewSite::selected() const {
  std::string key;
  if (mView) guarded([&] { key = mView->GetSelectedView(); });
  return key;
}

void ViewSite::close() {
  if (!mHost) return;
  const Ref<ViewSite> pin(this);
  host().observers().tell([&](HostObserver& each) { each.viewReleased(*this); });
  if (mView) guarded([&] { mView->PrepareToRelease(); });
  if (mPlaceable) guarded([&] { mPlaceable->Terminate(); });
  if (mLeaving == 0) mMessenger->detach();
  mHost = nullptr;
  mPlaceable = nullptr;
  mView = nullptr;
  mDataUser = nullptr;
  mTaviComponent = nullptr;
  mLocalizable = nullptr;
  mComponent = nullptr;
}

// --- the container

void ViewSite::DTMGUIDownload(const std::string& xml, const std::string& name, int) {
  const Ref<ViewSite> pin(this);
  mMessenger->SendRequest(xml, name);
}

std::string ViewSite::DTMGUIGetXmlPath() { return host().xmlPath(); }

void ViewSite::NotifyStatus(const std::string& key, int, int) {
  mBusyWith = key;
  host().observers().tell([&](HostObserver& each) { each.viewBusy(mName, key); });
}

}  // namespace ostrand
