#pragma once

#include "workbench/render/ViewPanel.h"
#include "workbench/window/Departure.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

// Data sets and their files.
class DataSetCommands {
 public:
  DataSetCommands(Workbench& workbench, ViewPanel& panel, const UserTalk& user, const Departure& departure)
      : mWorkbench(workbench), mPanel(panel), mUser(user), mDeparture(departure) {}

  void open();
  void save();
  void saveAs();

 private:
  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  const Departure& mDeparture;
};

}  // namespace ostrand
