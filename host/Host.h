#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/AddressService.h"
#include "host/Communication.h"
#include "host/Edits.h"
#include "host/Exchange.h"
#include "host/OutputWatch.h"
#include "host/SampleWatch.h"
#include "host/StopReport.h"
#include "host/User.h"
#include "host/UserPrompt.h"
#include "host/Views.h"

namespace ostrand {

// A whole host for one device: its data set, its views, its user. A program makes one on a desktop, opens a data set,
// connects a device, places views, and runs the desktop's event pump; everything comes out of that. One thread. The host owns
// and connects those who do the work; each of them has one job.
//
//   Host host(desktop, components, prompt, dataFolder());
//   host.openDataSet(dataFolder() / "devices/hartBlade.xml");
//   host.connect(makeDevice("hartBlade", desktop, host.dataSet()->document(), 1));
//   const Ref<ViewSite> site = host.views().place("VwMeasurement", "measurement");
//   host.views().open(*site, "activeRecipe");
//   desktop.wait(5);
//   host.views().release(*site);
class Host {
 public:
  // Desktop, components and prompt must outlive the host. A data folder without text tables, units or a tree document is a
  // host without them; a damaged one of these files is RuntimeError 5.
  Host(Desktop& desktop, ComponentSource& components, UserPrompt& prompt, std::filesystem::path dataFolder, Views::Taps taps = {});
  // Releases every view.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // --- who does the work

  // Language, level and units.
  User& user() { return mUser; }
  const User& user() const { return mUser; }
  // What is placed, and what is in front.
  Views& views() { return mViews; }
  const Views& views() const { return mViews; }
  // What is read and written.
  Exchange& exchange() { return mExchange; }
  // What is typed and not applied.
  Edits& edits() { return mEdits; }
  // What the device may be forced to put out.
  OutputWatch& outputs() { return mOutputs; }
  Communication& communication() { return mCommunication; }
  Observers& observers() { return mObservers; }
  Desktop& desktop() const { return mDesktop; }
  UserPrompt& prompt() const { return mPrompt; }

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
  // Tells the views as well.
  void setCommunicationMode(CommunicationMode mode);

  // --- for the views

  // The navigation of the data set's device: trees/ + its type, else tree.xml. Empty if there is none.
  const Document& treeDocument() const { return mTree; }
  const Ref<AddressService>& addressService() const { return mAddressService; }
  // The data folder with its closing separator.
  std::string xmlPath() const;

 private:
  Document readTree(const std::string& deviceType) const;

  Desktop& mDesktop;
  Signal<const ErrorText&>::Id mUnhandled = 0;
  UserPrompt& mPrompt;
  std::filesystem::path mDataFolder;
  Observers mObservers;
  User mUser;
  Ref<AddressService> mAddressService;
  Document mTree;
  SampleWatch mSamples;
  Communication mCommunication;
  OutputWatch mOutputs;
  StopReport mStopReport;
  Exchange mExchange;
  Edits mEdits;
  // Last, so that it goes first: a view that is released may still speak to all the others.
  Views mViews;
};

}  // namespace ostrand
