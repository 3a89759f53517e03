#pragma once

#include <QString>
#include <filesystem>
#include <optional>

class QAction;
class QMenu;
class QToolBar;

namespace ostrand {

class MainWindow;
class TranscriptRecorder;

// Data sets, transcripts, pictures of the view.
class FileMenu {
 public:
  FileMenu(MainWindow& window, QToolBar& tools);

  void refresh();

  void open();
  void save();
  void saveAs();
  void saveTranscript();
  // Begins with a view made anew, since a transcript begins at its creation, and writes the file at the end.
  void record(bool on);
  bool isRecording() const { return mRecording.has_value(); }
  void replay();
  void savePicture();
  void print();

 private:
  std::optional<std::filesystem::path> askForTranscript();
  QString say(const char* english) const;

  MainWindow& mWindow;
  QAction* mSave;
  QAction* mRecord;
  std::optional<std::filesystem::path> mRecording;
  const TranscriptRecorder* mRecorder = nullptr;  // of the view that is recorded, whichever is in front
};

}  // namespace ostrand
