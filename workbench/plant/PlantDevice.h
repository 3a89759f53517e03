#pragma once

#include <filesystem>
#include <string>

#include "host/DeviceStatus.h"
#include "host/Host.h"
#include "simulator/Device.h"
#include "workbench/conversation/ConversationTap.h"
#include "workbench/conversation/Recordings.h"
#include "workbench/plant/ComponentCatalog.h"
#include "workbench/plant/ViewClasses.h"

namespace ostrand {

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
  std::string frame();
  // Releases the view in front and opens it anew, as a recording needs it.
  void reopen();
  // The conversation of the view in front since its creation; empty if there is none.
  std::string transcript();

  // An edit that the device does not know of; one that no file knows of either.
  bool hasPendingEdits();
  bool hasUnsavedEdits();
  // A view is busy with something that the device is to be brought back from ("sampling", "testing").
  std::string busyWith();

 private:
  bool viewsHaveEdits();
  Ref<ViewSite> siteOf(const std::string& branch);

  Plant mPlant;
  const DeviceKind& mKind;
  ConversationTap mTap;
  Recordings mRecordings;
  Host mHost;
  DeviceStatus mStatus;
};

}  // namespace ostrand
