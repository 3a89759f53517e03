#pragma once

#include <functional>

#include "workbench/plant/PlantTree.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

// What is asked and told when the user leaves something behind: a page, a device, the window, a data set. A question names its
// answers by what they do; the last one changes nothing, and is the one that Enter and Escape give.
class Departure {
 public:
  Departure(Workbench& workbench, ViewPanel& panel, const UserTalk& user) : mWorkbench(workbench), mPanel(panel), mUser(user) {}

  // Asks before a page or device is left on which an output is forced, unless the page itself asks.
  bool mayLeave(const PlantTree::Page& page) const;
  // Tells the user if an output may be forced where nobody looks at it any more, when what was on its way has been answered.
  void warnOfForcedOutput(PlantDevice& device) const;
  // Tells why no document may be handed to the device's views now: a loop test may drive, and they keep what stops it. Of a device
  // that says nothing any more the user is asked what he sees there.
  bool mayHandIn(PlantDevice& device) const;
  // Asks because of values that would be lost.
  bool mayReplaceDataSet(PlantDevice& device) const;
  // Asks because of outputs that may be forced and of values that would be lost; true if the window may close. `close` is called
  // when it may after all: when what was running has been stopped.
  bool mayClose(std::function<void()> close) const;

  // Saves a device's data set; false if it could not.
  std::function<bool(PlantDevice&)> save;

 private:
  bool mayLeaveRunning(const std::vector<PlantDevice*>& acting, std::function<void()> close) const;
  // The answers: save, go on without, stay.
  bool mayLose(const std::vector<PlantDevice*>& devices, const QStringList& answers) const;
  bool mayLoseTheRest(PlantDevice& device) const;
  void stopAll(const std::vector<PlantDevice*>& devices, std::function<void()> close) const;

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
