#include "workbench/window/FileMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <optional>

#include "host/transcript/Replay.h"
#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"
#include "workbench/dialogs/TextDialog.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ViewPicture.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

constexpr const char* kDataSets = "Data sets|*.xml|All files|*";
constexpr const char* kTranscripts = "Transcripts|*.transcript|All files|*";

QString shown(const std::filesystem::path& file) { return QString::fromStdU16String(file.filename().u16string()); }

}  // namespace

FileMenu::FileMenu(MainWindow& window, QToolBar& tools) : mWindow(window) {
  QMenu* const menu = window.menuBar()->addMenu(QString());
  speak(*menu, "title", "&File");
  const auto add = [&](const char* text, const QKeySequence& keys, void (FileMenu::*command)()) {
    QAction* const action = menu->addAction(QString(), &window, [this, command] { (this->*command)(); });
    speak(*action, "text", text);
    action->setShortcut(keys);
    return action;
  };
  QAction* const openAction = add("&Open data set…", QKeySequence::Open, &FileMenu::open);
  mSave = add("&Save data set", QKeySequence::Save, &FileMenu::save);
  add("Save data set &as…", QKeySequence(QStringLiteral("Ctrl+Shift+S")), &FileMenu::saveAs);
  menu->addSeparator();
  add("Save conversation as &transcript…", {}, &FileMenu::saveTranscript);
  mRecord = menu->addAction(QString(), &window, [this](bool on) { record(on); });
  speak(*mRecord, "text", "&Record a transcript…");
  mRecord->setCheckable(true);
  add("Re&play a transcript…", {}, &FileMenu::replay);
  menu->addSeparator();
  add("Save view as p&icture…", {}, &FileMenu::savePicture);
  add("&Print view…", QKeySequence::Print, &FileMenu::print);
  menu->addSeparator();
  speak(*menu->addAction(QString(), QKeySequence(QStringLiteral("Ctrl+Q")), &window, [&window] { window.close(); }), "text", "&Quit");

  speak(*openAction, "iconText", "Open");
  speak(*mSave, "iconText", "Save");
  tools.addAction(openAction);
  tools.addAction(mSave);
  tools.addSeparator();
}

void FileMenu::refresh() {
  mRecord->setChecked(isRecording());
  mWindow.conversation().setRecording(isRecording());
}

// --- data sets

void FileMenu::open() {
  mWindow.panel().commit();
  Workbench& workbench = mWindow.workbench();
  const auto file = workbench.desktop().openDialog({say("Open data set").toStdString(), kDataSets, "xml", workbench.dataFolder() / "devices"});
  if (!file) return;
  std::optional<DataSet> dataSet;
  if (!mWindow.attempt(say("%1 could not be opened").arg(shown(*file)), [&] { dataSet = DataSet::open(*file); })) return;
  PlantDevice& device = workbench.deviceFor(*dataSet);
  if (device.hasUnsavedEdits() &&
      !mWindow.asks("There are edits that nobody has saved", "They are lost when another data set is opened. Open it all the same?"))
    return;
  device.host().setDataSet(std::move(*dataSet));
  mWindow.status().say(say("%1 is open").arg(shown(*file)));
  mWindow.warnOfForcedOutput(device);
}

void FileMenu::save() {
  mWindow.panel().commit();
  DataSet* const dataSet = mWindow.host().dataSet();
  if (!dataSet || dataSet->file().empty()) return saveAs();
  if (mWindow.attempt(say("%1 could not be saved; the file is as it was").arg(shown(dataSet->file())), [&] { dataSet->save(); }))
    mWindow.status().say(say("%1 is saved").arg(shown(dataSet->file())));
}

void FileMenu::saveAs() {
  mWindow.panel().commit();
  DataSet* const dataSet = mWindow.host().dataSet();
  if (!dataSet) return;
  const auto file = mWindow.workbench().desktop().saveDialog({say("Save data set").toStdString(), kDataSets, "xml", dataSet->file().filename().string()});
  if (!file) return;
  if (mWindow.attempt(say("%1 could not be saved; a file that was there is as it was").arg(shown(*file)), [&] { dataSet->saveAs(*file); }))
    mWindow.status().say(say("%1 is saved").arg(shown(*file)));
}

// --- transcripts

std::optional<std::filesystem::path> FileMenu::askForTranscript() {
  ViewSite* const front = mWindow.host().front();
  const std::string name = (front ? front->className() : std::string("view")) + ".transcript";
  return mWindow.workbench().desktop().saveDialog({say("Save transcript").toStdString(), kTranscripts, "transcript", name});
}

void FileMenu::saveTranscript() {
  mWindow.panel().commit();
  // What is said while the dialog is open does not belong to it.
  const std::string text = mWindow.workbench().current().transcript();
  if (text.empty()) return mWindow.status().say(say("No view is open whose conversation could be saved"));
  const auto file = askForTranscript();
  if (!file) return;
  if (mWindow.attempt(say("%1 could not be written").arg(shown(*file)), [&] { writeWholeFile(*file, text); }))
    mWindow.status().say(say("%1 is written; it can be replayed").arg(shown(*file)));
}

void FileMenu::record(bool on) {
  if (on == isRecording()) return refresh();
  PlantDevice& device = mWindow.workbench().current();
  if (on) {
    ViewSite* const front = device.host().front();
    const std::optional<std::filesystem::path> file = front && front->leave() ? askForTranscript() : std::nullopt;
    if (file) {
      mRecording = file;
      mWindow.panel().setView(nullptr);
      mWindow.attempt(say("The view could not be opened anew"), [&] { device.reopen(); });
      mWindow.showFront();
      mRecorder = device.host().front() ? device.recordings().of(*device.host().front()) : nullptr;
    }
  } else {
    const std::filesystem::path file = *std::exchange(mRecording, std::nullopt);
    mWindow.panel().commit();
    if (mWindow.attempt(say("%1 could not be written").arg(shown(file)), [&] { writeWholeFile(file, mRecorder ? mRecorder->text() : std::string()); }))
      mWindow.status().say(say("%1 is written; it can be replayed").arg(shown(file)));
  }
  refresh();
}

void FileMenu::replay() {
  Workbench& workbench = mWindow.workbench();
  const auto file = workbench.desktop().openDialog({say("Replay a transcript").toStdString(), kTranscripts, "transcript", {}});
  if (!file) return;
  Replay::Result result;
  if (!mWindow.attempt(say("%1 could not be replayed").arg(shown(*file)), [&] { result = Replay(workbench.components(), workbench.dataFolder()).compare(*file); }))
    return;
  switch (result.outcome) {
    case Replay::Outcome::Matches:
      mWindow.tell(say("The replay matches"), say("%1: the view said what the transcript tells.").arg(shown(*file)));
      break;
    case Replay::Outcome::Differs:
      TextDialog::show(mWindow, say("%1 differs").arg(shown(*file)), say("Lines with − were expected and lines with + were said."), qt(result.text));
      break;
    case Replay::Outcome::Malformed:
      mWindow.tell(say("%1 is no transcript of this version").arg(shown(*file)), qt(result.text).trimmed() + QLatin1Char('\n') + say("Open a file that this program has recorded."));
      break;
  }
}

// --- pictures

void FileMenu::savePicture() {
  const auto file = mWindow.workbench().desktop().saveDialog({say("Save view as picture").toStdString(), "Pictures|*.png|Documents|*.pdf", "png", mWindow.place().frame + ".png"});
  if (!file) return;
  if (mWindow.attempt(say("%1 could not be written").arg(shown(*file)), [&] { writePicture(mWindow.panel().picture(), *file); }))
    mWindow.status().say(say("%1 is written").arg(shown(*file)));
}

void FileMenu::print() { printPicture(mWindow.panel().picture(), mWindow); }

QString FileMenu::say(const char* english) const { return mWindow.workbench().texts().say(english); }

}  // namespace ostrand
