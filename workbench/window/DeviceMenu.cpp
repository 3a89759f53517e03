#include "workbench/window/DeviceMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "workbench/window/ConnectionCommands.h"
#include "workbench/window/EditCommands.h"
#include "workbench/window/TransferCommands.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

constexpr std::pair<CommunicationMode, const char*> kModes[] = {{CommunicationMode::Download, "Download to device (11)"},
                                                                {CommunicationMode::LocalAcceptance, "Local acceptance (10)"},
                                                                {CommunicationMode::Busy, "Communication busy (20)"},
                                                                {CommunicationMode::Free, "Communication free (21)"}};

}  // namespace

DeviceMenu::DeviceMenu(QMainWindow& window, QToolBar& tools, const Commands& commands, Workbench& workbench) : mWorkbench(workbench) {
  QMenu* const menu = window.menuBar()->addMenu(QString());
  speak(*menu, "title", "&Device");
  const auto add = [&](const char* text, const char* tool, const QKeySequence& keys, auto command) {
    QAction* const action = menu->addAction(QString(), &window, command);
    speak(*action, "text", text);
    if (tool) speak(*action, "iconText", tool);
    action->setShortcut(keys);
    return action;
  };
  TransferCommands& transfers = commands.transfers;
  EditCommands& edits = commands.edits;
  ConnectionCommands& connection = commands.connection;
  mReadPage = add("&Read this page", "Read page", QKeySequence(Qt::Key_F5), [&transfers] { transfers.readPage(); });
  QAction* const readAll = add("Read &all", "Read all", QKeySequence(Qt::SHIFT | Qt::Key_F5), [&transfers] { transfers.readAll(); });
  QAction* const compare = add("&Compare data set with device…", "Compare", QKeySequence(Qt::Key_F7), [&transfers] { transfers.compare(); });
  menu->addSeparator();
  mUndo = add("&Undo this edit", "Undo edit", {}, [&edits] { edits.undo(); });
  mDiscard = add("&Discard all edits", "Discard edits", {}, [&edits] { edits.discardAll(); });
  mApply = add("A&pply edits…", "Apply edits", QKeySequence(Qt::CTRL | Qt::Key_Return), [&edits] { edits.review(); });
  menu->addSeparator();
  mModes = menu->addMenu(QString());
  speak(*mModes, "title", "C&onnection");
  for (const auto& [mode, text] : kModes) {
    QAction* const action = mModes->addAction(QString(), &window, [&connection, mode = static_cast<int>(mode)] { connection.setMode(mode); });
    speak(*action, "text", text);
    action->setCheckable(true);
    action->setData(static_cast<int>(mode));
  }
  add("&Simulator: faults and speed…", nullptr, {}, [&connection] { connection.simulator(); });

  for (QAction* const action : {mReadPage, readAll, compare}) tools.addAction(action);
  tools.addSeparator();
  for (QAction* const action : {mApply, mUndo, mDiscard}) tools.addAction(action);
}

void DeviceMenu::refresh() {
  PlantDevice& device = mWorkbench.current();
  DataSet* const dataSet = device.host().dataSet();
  mReadPage->setEnabled(dataSet && !dataSet->readItems(device.frame()).empty());
  const bool edits = device.hasPendingEdits();
  for (QAction* const action : {mUndo, mDiscard, mApply}) action->setEnabled(edits);
  // How many wait stands at the button.
  const std::size_t waiting = device.waitingCount();
  const QString apply = mWorkbench.texts().say("Apply edits") + (waiting > 0 ? QStringLiteral(" (%1)").arg(waiting) : QString());
  if (mApply->iconText() != apply) mApply->setIconText(apply);
  mApply->setToolTip(device.host().user().session().level < 3 ? mWorkbench.texts().say("Needs user level 3 or more")
                                                              : mWorkbench.texts().say("What waits to be written to the device"));
  refreshModes();
}

void DeviceMenu::refreshModes() {
  const Communication& communication = mWorkbench.host().communication();
  for (QAction* const action : mModes->actions()) {
    const auto mode = static_cast<CommunicationMode>(action->data().toInt());
    const bool on = mode == CommunicationMode::LocalAcceptance ? communication.isLocal()
                    : mode == CommunicationMode::Download      ? !communication.isLocal()
                    : mode == CommunicationMode::Busy          ? communication.isBusy()
                                                               : !communication.isBusy();
    action->setChecked(on);
  }
}

}  // namespace ostrand
