#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "host/Request.h"
#include "platform/xml/Document.h"

namespace ostrand {

class ViewSite;

// One changed value of a view's edits, as it tells it for the host's collection: texts in document form.
struct Change {
  std::string view;
  std::string name;  // the parameter, or for several values in one the control's tag
  std::string caption;
  std::string oldText;
  std::string newText;
  std::string unit;
  std::string type;
  std::string contextTag;  // the group
};

enum class DataPath { Import, Offline, Online, Error };

// An event of the Messenger on its way to a view.
struct ViewEvent {
  enum class Kind { SetCommunicationMode, ReceiveValue, SetUnits, GetChanges } kind;
  int mode = 0;
  std::string tag;
  std::string value;
};

// Hears of everything that goes on in a host, to show or to record it; overrides what it cares for. Titles, messages and
// status keys are as the view gave them. A view's name is empty where the host itself acts. No member may throw, nor end the
// host.
class HostObserver {
 public:
  // The road to the device.
  virtual void requestQueued(const Request&) {}
  virtual void requestSent(const Request&) {}
  virtual void requestAnswered(const Request&, const Document& /*answer*/) {}
  virtual void requestFinished(const Request&, Outcome) {}
  virtual void requestRefused(const Request&, const std::string& /*reason*/) {}
  virtual void strayAnswer(const Document& /*answer*/) {}
  virtual void dataSetChanged() {}

  // From a view.
  virtual void messageShown(const std::string& /*view*/, const std::string& /*title*/, const std::string& /*message*/) {}
  virtual void questionAsked(const std::string& /*view*/, const std::string& /*title*/, const std::string& /*message*/, int /*answer*/) {}
  virtual void statusLine(const std::string& /*view*/, const std::string& /*text*/, const std::string& /*code*/) {}
  // An empty text clears it; `total` 0: how much there is to come is not known.
  virtual void progress(const std::string& /*text*/, int /*done*/, int /*total*/) {}
  virtual void logged(const std::string& /*view*/, char /*category*/, const std::string& /*text*/) {}
  virtual void errorReported(const std::string& /*view*/, const std::string& /*prefix*/, int /*number*/, const std::string& /*description*/) {}
  // An error that left the handler of an event, or other work out of the event pump (which has no view's name).
  virtual void errorUnhandled(const std::string& /*view*/, int /*number*/, const std::string& /*description*/) {}
  virtual void parameterStatus(const std::string& /*view*/, const std::string& /*name*/, const std::string& /*word*/) {}
  virtual void changeAdded(const Change&) {}
  virtual void valueForwarded(const std::string& /*view*/, const std::string& /*tag*/, const std::string& /*value*/) {}
  virtual void focusLeft(const std::string& /*view*/) {}
  // What the view is busy with ("sampling", "testing"), empty when it has done.
  virtual void viewBusy(const std::string& /*view*/, const std::string& /*key*/) {}

  // To a view; each is told before the view is called.
  virtual void viewPlaced(const ViewSite&) {}
  virtual void viewLocalized(const ViewSite&, const std::string& /*language*/) {}
  virtual void viewSelected(const ViewSite&, const std::string& /*key*/) {}
  virtual void viewFocused(const ViewSite&) {}
  virtual void viewResized(const ViewSite&, int /*width*/, int /*height*/) {}
  virtual void viewHandedIn(const ViewSite&, DataPath, const Document&) {}
  virtual void viewEvent(const std::string& /*view*/, const ViewEvent&) {}
  virtual void viewAskedToLeave(const ViewSite&) {}
  virtual void viewReleased(const ViewSite&) {}

 protected:
  ~HostObserver() = default;
};

// The observers of one host, told in the order in which they came. One that leaves meanwhile is passed over.
class Observers {
 public:
  void add(HostObserver& observer) { mObservers.push_back(&observer); }
  void remove(HostObserver& observer) { std::erase(mObservers, &observer); }
  template <class Tell>
  void tell(Tell tell) const {
    for (HostObserver* observer : std::vector(mObservers))
      if (std::find(mObservers.begin(), mObservers.end(), observer) != mObservers.end()) tell(*observer);
  }

 private:
  std::vector<HostObserver*> mObservers;
};

}  // namespace ostrand
