#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "host/DeviceStatus.h"
#include "host/Host.h"
#include "simulator/Device.h"
#include "workbench/conversation/ConversationTap.h"
#include "workbench/conversation/Recordings.h"
#include "workbench/plant/ComponentCatalog.h"
#include "workbench/plant/ViewClasses.h"
#include "workbench/render/KeptValue.h"
#include "workbench/words/Texts.h"

namespace ostrand {

class EditControl;

// One simulated transmitter of the mill, with the host that serves it and the views that are open on it.
class PlantDevice {
 public:
  // Where it stands; all must outlive it.
  struct Plant {
    Desktop& desktop;
    ComponentCatalog& components;
    UserPrompt& prompt;
    std::filesystem::path dataFolder;
    ConversationLog& log;
  };

  // Opens the device's own data set and switches it on. RuntimeError as Host::openDataSet.
  PlantDevice(const Plant& plant, const DeviceKind& kind);
  ~PlantDevice();

  const DeviceKind& kind() const { return mKind; }
  Host& host() { return mHost; }
  DeviceStatus& status() { return mStatus; }
  OutputWatch& outputs() { return mHost.outputs(); }
  ConversationTap& tap() { return mTap; }
  Recordings& recordings() { return mRecordings; }
  ViewClasses classes();
  // The class for a branch of the tree document; empty if there is none yet.
  std::string classFor(std::string_view branch);
  // The device's tag, or its kind's name while it has none.
  std::string title();
  // The data set's device; a device that is switched on again has forgotten its faults.
  void switchOn();

  // Asks the view in front whether it may be left, then shows this frame, in a new view if need be. False: nothing changed.
  bool show(const std::string& branch, const std::string& frame);
  // The branch of the view in front; empty if there is none.
  std::string branch();
  // The frame in front, or the branch again where its view has no frames: the name of the page, and of its group.
  std::string frame();
  // Releases the view in front and opens it anew, as a recording needs it.
  void reopen();
  // The conversation of the view in front since its creation; empty if there is none.
  std::string transcript();

  // An edit that the device does not know of.
  bool hasPendingEdits();
  // A value that no file knows of: typed, read or written since the data set was saved last.
  bool hasUnsavedValues();
  // What waits to be written to the device: what the views' edits hold, and what the data set keeps without them; but nothing
  // that leaves by a button of its own. The number alone is found without asking the views.
  std::vector<Change> waiting();
  std::size_t waitingCount();
  // Edits on the pages that do not go with the others: values with a button of their own, and wrong ones.
  std::vector<EditControl*> leftOut();
  // Takes what is typed on the pages into the data set, for its file. Gives the parameters that it did not take: wrong values, and
  // those that leave by a button of their own.
  std::set<std::string> keepEdits();
  // Takes back one of them, wherever it stands. It is shown as the device has it.
  void dropEdit(const std::string& parameter);
  // What the data set keeps for the device beside what the edit shows.
  KeptValue keptValue(const EditControl& edit, const Texts& texts);
  // A view is busy with something that the device is to be brought back from ("sampling", "testing").
  std::string busyWith();

 private:
  bool viewsHaveEdits();
  std::vector<EditControl*> viewEdits();
  Ref<ViewSite> siteOf(const std::string& branch);

  Plant mPlant;
  const DeviceKind& mKind;
  ConversationTap mTap;
  Recordings mRecordings;
  Host mHost;
  DeviceStatus mStatus;
};

}  // namespace ostrand
