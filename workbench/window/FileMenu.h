#pragma once

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace ostrand {

class DataSetCommands;
class TranscriptCommands;
class UserTalk;
class ViewPanel;
class Workbench;

// Data sets, transcripts, pictures of the view.
class FileMenu {
 public:
  struct Commands {
    DataSetCommands& dataSets;
    TranscriptCommands& transcripts;
  };
  FileMenu(QMainWindow& window, QToolBar& tools, const Commands& commands, Workbench& workbench, ViewPanel& panel, const UserTalk& user);

  void refresh();

  void savePicture();
  void print();

 private:
  QMainWindow& mWindow;
  TranscriptCommands& mTranscripts;
  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  QAction* mRecord;
};

}  // namespace ostrand
