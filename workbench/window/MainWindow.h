#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/conversation/ConversationPanel.h"
#include "workbench/plant/HeaderBar.h"
#include "workbench/plant/LoopTestBanner.h"
#include "workbench/plant/PlantTree.h"
#include "workbench/plant/Workbench.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/window/StatusLine.h"

class QSplitter;
class QToolBar;

namespace ostrand {

class DeviceMenu;
class FileMenu;
class SettingsMenu;

// The window: plant tree on the left, the device's header above its view, the conversation below, the status line at the
// bottom. What the commands do stands in the menus' classes.
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
  const std::vector<LoopTestBanner*>& banners() const { return mBanners; }
  FileMenu& fileMenu() const { return *mFileMenu; }
  DeviceMenu& deviceMenu() const { return *mDeviceMenu; }
  SettingsMenu& settingsMenu() const { return *mSettingsMenu; }
  Theme theme() const { return Theme::make(mWorkbench.settings().theme, mWorkbench.settings().scale); }

  // The user wants to see this frame. False: the view in front does not want to be left, or another choice is going on.
  bool show(const PlantTree::Place& place);
  PlantTree::Place place() const;
  // The view in front may be another object now: shows it.
  void showFront();
  // Carries out a command. An error becomes a message to the user; `trying` says what was tried.
  bool attempt(const QString& trying, const std::function<void()>& command);
  // A question in the user's language, with `what` in the place of %1. True for yes.
  bool asks(const char* title, const char* message, const QString& what = {});
  // A message that waits for the user.
  void tell(const QString& title, const QString& text);
  // F6: from the tree to the view to the conversation, and round.
  void nextArea(bool forward);
  // Tells the user if a loop test may go on where nobody looks at it any more.
  void warnOfForcedOutput(PlantDevice& device);
  // Asks because of edits that would be lost and of tests that run; true if the window may close.
  bool mayClose();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  class FocusWatch;

  void layOut();
  void connectPanel();
  void connectWorkbench();
  void applySettings();
  void rescale(double factor);
  void deviceChanged();
  void refreshLater();
  TranscriptRecorder* recorder() const;
  std::shared_ptr<void> recorded(const Control& control, const UserInput& input);
  QString whyDisabled(const Control& control) const;

  Workbench& mWorkbench;
  PlantTree* mTree;
  HeaderBar* mHeader;
  ViewPanel* mPanel;
  ConversationPanel* mConversation;
  StatusLine* mStatus;
  QToolBar* mTools;
  QSplitter* mColumns = nullptr;  // tree and view
  std::vector<LoopTestBanner*> mBanners;
  std::vector<std::unique_ptr<FocusWatch>> mFocusWatches;
  std::unique_ptr<FileMenu> mFileMenu;
  std::unique_ptr<DeviceMenu> mDeviceMenu;
  std::unique_ptr<SettingsMenu> mSettingsMenu;
  std::vector<std::pair<Signal<>*, Signal<>::Id>> mConnections;
  Theme::Kind mAppliedTheme = Theme::Kind::Light;
  double mAppliedScale = 0;
  bool mChoosing = false;
  bool mRefreshing = false;
  bool mCloseAfterWait = false;
};

}  // namespace ostrand
