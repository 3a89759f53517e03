#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "workbench/conversation/ConversationPanel.h"
#include "workbench/plant/HeaderBar.h"
#include "workbench/plant/OutputBanner.h"
#include "workbench/plant/PlantTree.h"
#include "workbench/plant/Workbench.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/window/ConnectionCommands.h"
#include "workbench/window/DataSetCommands.h"
#include "workbench/window/DeviceMenu.h"
#include "workbench/window/EditCommands.h"
#include "workbench/window/FileMenu.h"
#include "workbench/window/FocusWatch.h"
#include "workbench/window/SettingsMenu.h"
#include "workbench/window/StatusLine.h"
#include "workbench/window/TranscriptCommands.h"
#include "workbench/window/TransferCommands.h"

class QSplitter;
class QToolBar;

namespace ostrand {

// The window: plant tree on the left, the device's header above its view, the conversation below, the status line at the
// bottom; and which page of which device stands in it.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Workbench& workbench);
  ~MainWindow() override;

  Workbench& workbench() const { return mWorkbench; }
  Host& host() const { return mWorkbench.host(); }
  ViewPanel& panel() const { return *mPanel; }
  PlantTree& tree() const { return *mTree; }
  ConversationPanel& conversation() const { return *mConversation; }
  StatusLine& status() const { return *mStatus; }
  HeaderBar& header() const { return *mHeader; }
  const std::vector<OutputBanner*>& banners() const { return mBanners; }
  Theme theme() const { return Theme::make(mWorkbench.settings().theme, mWorkbench.settings().scale); }

  // --- the commands
  const UserTalk& user() const { return mUser; }
  DataSetCommands& dataSets() { return mDataSets; }
  TranscriptCommands& transcripts() { return mTranscripts; }
  TransferCommands& transfers() { return mTransfers; }
  EditCommands& edits() { return mEdits; }
  ConnectionCommands& connection() { return mConnection; }
  FileMenu& fileMenu() { return mFileMenu; }
  DeviceMenu& deviceMenu() { return mDeviceMenu; }
  SettingsMenu& settingsMenu() { return mSettingsMenu; }

  // The user wants to see this frame. False: the view in front does not want to be left, or another choice is going on.
  bool show(const PlantTree::Page& page);
  PlantTree::Page page() const;
  // The view in front may be another object now: shows it.
  void showFront();
  // F6: from the tree to the view to the conversation, and round.
  void nextArea(bool forward);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void layOut();
  void connectPanel();
  void connectWorkbench();
  void applySettings();
  void applyTheme(const Theme& theme);
  void rescale(double factor);
  void deviceChanged();
  void refreshLater();
  void leaveView(bool forward);
  TranscriptRecorder* recorder() const;
  std::shared_ptr<void> recorded(const Control& control, const UserInput& input);

  Workbench& mWorkbench;
  PlantTree* mTree;
  HeaderBar* mHeader;
  ViewPanel* mPanel;
  ConversationPanel* mConversation;
  StatusLine* mStatus;
  QToolBar* mTools;
  QSplitter* mColumns = nullptr;  // tree and view
  std::vector<OutputBanner*> mBanners;
  std::vector<std::unique_ptr<FocusWatch>> mFocusWatches;
  UserTalk mUser;
  Departure mDeparture;
  DataSetCommands mDataSets;
  TranscriptCommands mTranscripts;
  TransferCommands mTransfers;
  EditCommands mEdits;
  ConnectionCommands mConnection;
  FileMenu mFileMenu;
  DeviceMenu mDeviceMenu;
  SettingsMenu mSettingsMenu;
  std::vector<std::pair<Signal<>*, Signal<>::Id>> mConnections;
  Theme::Kind mAppliedTheme = Theme::Kind::Light;
  double mAppliedScale = 0;
  bool mChoosing = false;
  bool mRefreshing = false;
  bool mCloseAfterWait = false;
};

}  // namespace ostrand
