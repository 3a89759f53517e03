#pragma once

#include <string>

#include "host/HostMessenger.h"
#include "host/HostObject.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/IPlaceable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/ITaviView.h"

namespace ostrand {

class Host;

// Where one component stands in the host: its container, its Messenger, and its life in the right order. The host makes it
// (Views::place) and releases it; whoever holds it longer finds it empty. Every call on an interface that the component does
// not have, or on a released one, does nothing.
class ViewSite : public HostObject<IHostContainer, INotifyStatus> {
 public:
  ViewSite(Host& host, std::string className, std::string name, Ref<IObject> component);

  const std::string& className() const { return mClassName; }
  const std::string& name() const { return mName; }  // unique in the host
  const std::string& tag() const { return mTag; }    // as told when it was placed; empty if the component kept its own
  bool alive() const { return static_cast<bool>(mComponent); }
  IObject* component() const { return mComponent.get(); }
  ITaviView* view() const { return mView.get(); }
  HostMessenger& messenger() const { return *mMessenger; }
  // What the view told that it is busy with.
  const std::string& busyWith() const { return mBusyWith; }

  // The calls of the life of a view, one by one. Views::place makes the first three, Views::open the rest.
  void place(const std::string& tag);
  void setMessenger();
  void localize();
  void select(const std::string& key);
  void handIn(DataPath path, const Document& document);
  void requestFocus();
  void resize(int width, int height);  // twips
  // Whether the frame in front may be left now; the view may ask the user. A view that is released meanwhile may still send
  // what its answer asks for, a stop above all: its Messenger works until the call has returned.
  bool leave();
  bool leaving() const { return mLeaving > 0; }
  std::string selected() const;
  void close();

  // IHostContainer and INotifyStatus, for the component.
  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override;
  std::string DTMGUIGetXmlPath() override;
  void NotifyStatus(const std::string& key, int first, int second) override;

 private:
  Host& host() const;
  // A component that lets an error out costs this call only.
  template <class F>
  void guarded(F&& call) const;

  Host* mHost;
  std::string mClassName;
  std::string mName;
  std::string mTag;
  std::string mBusyWith;
  int mLeaving = 0;
  Ref<HostMessenger> mMessenger;
  Ref<IObject> mComponent;
  Ref<IPlaceable> mPlaceable;
  Ref<ITaviView> mView;
  Ref<ITaviDataUser> mDataUser;
  Ref<ITaviComponent> mTaviComponent;
  Ref<ILocalizable> mLocalizable;
};

}  // namespace ostrand
