#pragma once

#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

// What is asked and told when the user leaves something behind: the window, a device, a data set.
class Departure {
 public:
  Departure(Workbench& workbench, ViewPanel& panel, const UserTalk& user) : mWorkbench(workbench), mPanel(panel), mUser(user) {}

  // Tells the user if an output may be forced where nobody looks at it any more.
  void warnOfForcedOutput(PlantDevice& device) const;
  // Asks because of edits that would be lost.
  bool mayReplaceDataSet(PlantDevice& device) const;
  // Asks because of edits that would be lost and of tests that run; true if the window may close.
  bool mayClose() const;

 private:
  bool asks(const char* title, const char* message, const QString& what = {}) const;

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
};

}  // namespace ostrand
