#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"

namespace ostrand {

// Transcripts of what a view and its host say to each other: saved, recorded, replayed.
class TranscriptCommands {
 public:
  // `window` is what a report of a replay stands over; `showFront` shows a view that was made anew.
  TranscriptCommands(Workbench& workbench, ViewPanel& panel, const UserTalk& user, QWidget& window, std::function<void()> showFront)
      : mWorkbench(workbench), mPanel(panel), mUser(user), mWindow(window), mShowFront(std::move(showFront)) {}

  void save();
  // Begins with a view made anew, since a transcript begins at its creation, and writes the file at the end.
  void record(bool on);
  bool isRecording() const { return mRecording.has_value(); }
  void replay();

  // A recording has begun or ended, or could not begin.
  std::function<void()> onRecording;

 private:
  std::optional<std::filesystem::path> askForFile() const;
  void begin();
  void end();

  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  QWidget& mWindow;
  std::function<void()> mShowFront;
  std::optional<std::filesystem::path> mRecording;
  const TranscriptRecorder* mRecorder = nullptr;  // of the view that is recorded, whichever is in front
};

}  // namespace ostrand
