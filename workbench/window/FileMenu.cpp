#include "workbench/window/FileMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "workbench/window/DataSetCommands.h"
#include "workbench/window/TranscriptCommands.h"
#include "workbench/window/ViewPicture.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

FileMenu::FileMenu(QMainWindow& window, QToolBar& tools, const Commands& commands, Workbench& workbench, ViewPanel& panel, const UserTalk& user)
    : mWindow(window), mTranscripts(commands.transcripts), mWorkbench(workbench), mPanel(panel), mUser(user) {
  QMenu* const menu = window.menuBar()->addMenu(QString());
  speak(*menu, "title", "&File");
  const auto add = [&](const char* text, const QKeySequence& keys, auto command) {
    QAction* const action = menu->addAction(QString(), &window, command);
    speak(*action, "text", text);
    action->setShortcut(keys);
    return action;
  };
  DataSetCommands& dataSets = commands.dataSets;
  TranscriptCommands& transcripts = commands.transcripts;
  QAction* const open = add("&Open data set…", QKeySequence::Open, [&dataSets] { dataSets.open(); });
  QAction* const save = add("&Save data set", QKeySequence::Save, [&dataSets] { dataSets.save(); });
  add("Save data set &as…", QKeySequence(QStringLiteral("Ctrl+Shift+S")), [&dataSets] { dataSets.saveAs(); });
  menu->addSeparator();
  add("Save conversation as &transcript…", {}, [&transcripts] { transcripts.save(); });
  mRecord = add("&Record a transcript…", {}, [&transcripts](bool on) { transcripts.record(on); });
  mRecord->setCheckable(true);
  add("Re&play a transcript…", {}, [&transcripts] { transcripts.replay(); });
  menu->addSeparator();
  add("Save view as p&icture…", {}, [this] { savePicture(); });
  add("&Print view…", QKeySequence::Print, [this] { print(); });
  menu->addSeparator();
  add("&Quit", QKeySequence(QStringLiteral("Ctrl+Q")), [&window] { window.close(); });

  speak(*open, "iconText", "Open");
  speak(*save, "iconText", "Save");
  tools.addAction(open);
  tools.addAction(save);
  tools.addSeparator();
}

void FileMenu::refresh() { mRecord->setChecked(mTranscripts.isRecording()); }

void FileMenu::savePicture() {
  const auto file = mWorkbench.desktop().saveDialog(
      {mUser.say("Save view as picture").toStdString(), "Pictures|*.png|Documents|*.pdf", "png", mWorkbench.current().frame() + ".png"});
  if (!file) return;
  if (mUser.attempt(mUser.say("%1 could not be written").arg(fileName(*file)), [&] { writePicture(mPanel.picture(), *file); }))
    mUser.remark(mUser.say("%1 is written").arg(fileName(*file)));
}

void FileMenu::print() { printPicture(mPanel.picture(), mWindow); }

}  // namespace ostrand
