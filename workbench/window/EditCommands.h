#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "workbench/window/TransferCommands.h"

namespace ostrand {

// Edits that the device has not been told: taking them back, and applying them.
class EditCommands {
 public:
  EditCommands(Workbench& workbench, ViewPanel& panel, const UserTalk& user, TransferCommands& transfers)
      : mWorkbench(workbench), mPanel(panel), mUser(user), mTransfers(transfers) {}

  void undo();
  void discardAll();
  void apply();

  // Some edit has gone.
  std::function<void()> onChanged;

 private:
  void addOfflineEdits(std::vector<Change>& changes) const;
  void changed() const;

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  TransferCommands& mTransfers;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
