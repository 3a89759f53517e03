#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/ComponentSource.h"
#include "host/LiveReading.h"
#include "host/Messages.h"
#include "host/ViewSite.h"

namespace ostrand {

class Host;

// The views of a host: makes and places them, knows which one the user looks at, and gives them what they are to hear.
class Views {
 public:
  // What stands between a view and the host, for whoever records or disturbs their conversation. Either may be empty.
  struct Taps {
    std::function<Ref<Messenger>(ViewSite&, Ref<Messenger>)> messenger;
    std::function<Ref<IHostContainer>(ViewSite&, Ref<IHostContainer>)> container;
  };

  // Host and components must outlive them.
  Views(Host& host, ComponentSource& components, Taps taps);
  // Releases every view.
  ~Views();
  Views(const Views&) = delete;
  Views& operator=(const Views&) = delete;

  // --- the life of a view

  // Creates a component and places it. An empty tag leaves the component's own. RuntimeError 5 for a class that there is
  // not. The site's own functions are the rest of its way, step by step.
  Ref<ViewSite> create(const std::string& className, const std::string& tag = {});
  // Creates a component, places it and gives it its Messenger and its texts. An empty tag leaves the component's own.
  // RuntimeError 5 for a class that there is not.
  Ref<ViewSite> place(const std::string& className, const std::string& tag = {});
  // The rest of the way to a view in use: selects the frame, hands in the data set, tells the communication mode, asks for the
  // focus. `path` is Import for a data set that was just loaded from a file for this view.
  void open(ViewSite& site, const std::string& key, DataPath path = DataPath::Offline);
  // Asks the view in front whether it may be left; if so, brings this one's frame to front. False: nothing has changed.
  bool bringToFront(ViewSite& site, const std::string& key);
  // For who drives a site step by step: this view is the one that the user looks at.
  void showsFront(ViewSite& site);
  ViewSite* front() const { return mFront.get(); }
  const std::vector<Ref<ViewSite>>& sites() const { return mSites; }
  void release(ViewSite& site);
  // The component of that name; nullptr if there is none, or if it is no view.
  ITaviView* viewOf(const std::string& name) const;
  // What an editor behind several values holds, by the view and its Tag; empty if there is none, or if it gives nothing since
  // something in it is wrong.
  std::vector<MessageItem> recordOf(const std::string& view, const std::string& tag) const;

  // How often values are read while a frame with live values is in front.
  LiveReading& liveReading() { return mLiveReading; }
  void setLiveReading(bool on);

  // --- what they hear

  void raise(const ViewEvent& event);
  // To all but the one that it comes from.
  void forward(const HostMessenger& from, const std::string& tag, const std::string& value);
  // Hands each view its part of an answer.
  void deliver(const Request& request, const Document& answer);
  // The user reads another language, or has another level.
  void localize();
  void renewMessengers();

  // --- for the sites: what a component gets of the host

  Ref<Messenger> messengerFor(ViewSite& site) const;
  Ref<IHostContainer> containerFor(ViewSite& site) const;

 private:
  std::string liveGroup() const;
  std::string uniqueName(const std::string& className) const;

  Host& mHost;
  ComponentSource& mComponents;
  Taps mTaps;
  bool mLive = true;
  LiveReading mLiveReading;
  std::vector<Ref<ViewSite>> mSites;
  std::vector<Ref<ViewSite>> mLeaving;  // released while they were asked to leave
  Ref<ViewSite> mFront;
};

}  // namespace ostrand
