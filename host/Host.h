#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/AddressService.h"
#include "host/Communication.h"
#include "host/Comparison.h"
#include "host/ComponentSource.h"
#include "host/LiveReading.h"
#include "host/OutputWatch.h"
#include "host/SampleWatch.h"
#include "host/StopReport.h"
#include "host/TextTables.h"
#include "host/Transfer.h"
#include "host/UnitService.h"
#include "host/UserPrompt.h"
#include "host/ViewSite.h"
#include "host/Writing.h"

namespace ostrand {

// A whole host for one device: its data set, its views, its user. A program makes one on a desktop, opens a data set,
// connects a device, places views, and runs the desktop's event pump; everything comes out of that. One thread.
//
//   Host host(desktop, components, prompt, dataFolder());
//   host.openDataSet(dataFolder() / "devices/hartBlade.xml");
//   host.connect(makeDevice("hartBlade", desktop, host.dataSet()->document(), 1));
//   const Ref<ViewSite> site = host.place("VwMeasurement", "measurement");
//   host.open(*site, "activeRecipe");
//   desktop.wait(5);
//   host.release(*site);
class Host {
 public:
  // What stands between a view and the host, for whoever records or disturbs their conversation. Either may be empty.
  struct Taps {
    std::function<Ref<Messenger>(ViewSite&, Ref<Messenger>)> messenger;
    std::function<Ref<IHostContainer>(ViewSite&, Ref<IHostContainer>)> container;
  };

  // Desktop, components and prompt must outlive the host. A data folder without text tables, units or a tree document is a
  // host without them; a damaged one of these files is RuntimeError 5.
  Host(Desktop& desktop, ComponentSource& components, UserPrompt& prompt, std::filesystem::path dataFolder, Taps taps = {});
  // Releases every view.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  Desktop& desktop() const { return mDesktop; }
  UserPrompt& prompt() const { return mPrompt; }
  Observers& observers() { return mObservers; }
  Communication& communication() { return mCommunication; }
  const UserSession& session() const { return mSession; }
  // What the device may be forced to put out.
  OutputWatch& outputs() { return mOutputs; }

  // --- data set and device

  // Takes the place of the data set before, and hands itself to the views that are open. RuntimeError 53, 70 or 5 leaves
  // everything as it was. Error 70 also while a loop test may still drive an output (OutputWatch::holdsDocuments).
  void openDataSet(const std::filesystem::path& file) { setDataSet(DataSet::open(file)); }
  void setDataSet(DataSet dataSet);
  // nullptr if none is open.
  DataSet* dataSet() { return mCommunication.dataSet(); }
  const DataSet* dataSet() const { return mCommunication.dataSet(); }
  // nullptr disconnects.
  void connect(std::unique_ptr<Device> device);

  // --- the user

  // RuntimeError 5 for a language that there is not; then everything stays.
  void setLanguage(const std::string& language);
  TextTables& textTables() { return mTextTables; }
  const Ref<ITextTable>& textTable() const { return mTextTable; }
  // Gives each view its Messenger anew: there it reads the level.
  void setUserLevel(int level);
  void setMaximizeAllowed(bool allowed) { mSession.maximizeAllowed = allowed; }
  void setCommunicationMode(CommunicationMode mode);
  // RuntimeError 5 for a quantity or unit that there is not.
  void setUnit(std::string_view quantity, std::string_view unit);
  const Ref<UnitService>& units() const { return mUnits; }

  // --- views

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
  // How often values are read while a frame with live values is in front.
  LiveReading& liveReading() { return mLiveReading; }
  void setLiveReading(bool on);

  // --- reading and writing; the transfer tells how far it is and what failed

  Transfer& transfer() { return mTransfer; }
  void readGroup(const std::string& group, std::function<void()> finished = {});
  void readAll(std::function<void()> finished = {});
  // Each parameter in a request of its home group. A write sends the edit, or the data set's value where there is none, and
  // leaves out what makes the device act.
  void readParameters(const std::vector<std::string>& names, std::function<void()> finished = {});
  std::vector<LeftOut> writeParameters(const std::vector<std::string>& names, std::function<void()> finished = {});
  Comparison& comparison() { return mComparison; }

  // --- edits

  // What the views' edits hold. 1 collects all items, 2 the modified ones.
  std::vector<Change> collectChanges(int mode = 2);
  // Sends changes to the device, or with local acceptance takes them into the data set. Values that make the device act are
  // left out, but for those of `page`, the group whose page is applied, when the user has confirmed them.
  std::vector<LeftOut> applyChanges(const std::vector<Change>& changes, std::function<void()> finished = {}, const std::string& page = {});
  // Takes what is typed and not applied into the data set, so that it is in the file that is saved.
  std::vector<LeftOut> keepTypedEdits();
  // Takes back the data set's edits and those in the views: these then hold what the device last said, and nothing where it
  // has said nothing. Error 70 while a loop test may still drive an output.
  void discardEdits();

  // --- for the views

  // Empty if the request was accepted, else why not. RuntimeError 5 for a text that is no request.
  std::string submit(const std::string& view, const std::string& xml, const std::string& name, const std::string& statusKey, int first, int second);
  int addChange(Change change);
  // A view's word about a value: whether it is being edited.
  void noteStatus(const std::string& view, const std::string& parameter, const std::string& word);
  void forward(const HostMessenger& from, const std::string& tag, const std::string& value);
  // The navigation of the data set's device: trees/ + its type, else tree.xml. Empty if there is none.
  const Document& treeDocument() const { return mTree; }
  const Ref<AddressService>& addressService() const { return mAddressService; }
  // The data folder with its closing separator.
  std::string xmlPath() const;
  Ref<Messenger> messengerFor(ViewSite& site) const;
  Ref<IHostContainer> containerFor(ViewSite& site) const;

 private:
  void raise(const ViewEvent& event);
  void deliver(const Request& request, const Document& answer);
  void requireNoLoopTest() const;
  bool confirms(const std::vector<Change>& acting);
  Document readTree(const std::string& deviceType) const;
  std::string liveGroup() const;
  bool isEdited(const std::string& parameter) const;
  std::string uniqueName(const std::string& className) const;

  Desktop& mDesktop;
  Signal<const ErrorText&>::Id mUnhandled = 0;
  ComponentSource& mComponents;
  UserPrompt& mPrompt;
  std::filesystem::path mDataFolder;
  Taps mTaps;
  Observers mObservers;
  UserSession mSession;
  TextTables mTextTables;
  Ref<ITextTable> mTextTable;
  Ref<UnitService> mUnits;
  Ref<AddressService> mAddressService;
  Document mTree;
  SampleWatch mSamples;
  Communication mCommunication;
  OutputWatch mOutputs;
  StopReport mStopReport;
  Transfer mTransfer;
  Writing mWriting;
  Comparison mComparison;
  bool mLive = true;
  LiveReading mLiveReading;
  std::map<std::string, std::set<std::string>> mEdited;  // by view: the parameters of which it shows an edit
  std::vector<Ref<ViewSite>> mSites;
  std::vector<Ref<ViewSite>> mLeaving;  // released while they were asked to leave
  Ref<ViewSite> mFront;
  std::vector<Change>* mCollecting = nullptr;
};

}  // namespace ostrand
