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
  // With what is typed on the pages. False if there is no file of it now.
  bool save();
  bool save(PlantDevice& device);
  void saveAs();

 private:
  bool saveAs(PlantDevice& device);
  bool write(PlantDevice& device, const QString& trying, const std::function<void()>& save);

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  const Departure& mDeparture;
};

}  // namespace ostrand
