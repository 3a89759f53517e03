#include "workbench/window/DeviceMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

#include "host/PendingEdits.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"
#include "workbench/dialogs/CompareDialog.h"
#include "workbench/dialogs/FaultsDialog.h"
#include "workbench/dialogs/TransferDialog.h"
#include "workbench/window/MainWindow.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

constexpr std::pair<CommunicationMode, const char*> kModes[] = {{CommunicationMode::Download, "Download to device (11)"},
                                                                {CommunicationMode::LocalAcceptance, "Local acceptance (10)"},
                                                                {CommunicationMode::Busy, "Communication busy (20)"},
                                                                {CommunicationMode::Free, "Communication free (21)"}};

}  // namespace

DeviceMenu::DeviceMenu(MainWindow& window, QToolBar& tools) : mWindow(window) {
  QMenu* const menu = window.menuBar()->addMenu(QString());
  speak(*menu, "title", "&Device");
  const auto add = [&](const char* text, const QKeySequence& keys, void (DeviceMenu::*command)()) {
    QAction* const action = menu->addAction(QString(), &window, [this, command] { (this->*command)(); });
    speak(*action, "text", text);
    action->setShortcut(keys);
    return action;
  };
  mReadPage = add("&Read this page", QKeySequence(Qt::Key_F5), &DeviceMenu::readPage);
  QAction* const readAllAction = add("Read &all", QKeySequence(Qt::SHIFT | Qt::Key_F5), &DeviceMenu::readAll);
  QAction* const compareAction = add("&Compare data set with device…", QKeySequence(Qt::Key_F7), &DeviceMenu::compare);
  menu->addSeparator();
  mUndo = add("&Undo this edit", {}, &DeviceMenu::undoEdit);
  mDiscard = add("&Discard all edits", {}, &DeviceMenu::discardEdits);
  mApply = add("A&pply all edits", QKeySequence(Qt::CTRL | Qt::Key_Return), &DeviceMenu::applyEdits);
  menu->addSeparator();
  mModes = menu->addMenu(QString());
  speak(*mModes, "title", "C&onnection");
  for (const auto& [mode, text] : kModes) {
    QAction* const action = mModes->addAction(QString(), &window, [this, mode = static_cast<int>(mode)] { setMode(mode); });
    speak(*action, "text", text);
    action->setCheckable(true);
    action->setData(static_cast<int>(mode));
  }
  add("&Simulator: faults and speed…", {}, &DeviceMenu::simulator);

  speak(*mReadPage, "iconText", "Read page");
  speak(*readAllAction, "iconText", "Read all");
  speak(*compareAction, "iconText", "Compare");
  speak(*mUndo, "iconText", "Undo edit");
  speak(*mDiscard, "iconText", "Discard edits");
  speak(*mApply, "iconText", "Apply edits");
  for (QAction* const action : {mReadPage, readAllAction, compareAction}) tools.addAction(action);
  tools.addSeparator();
  for (QAction* const action : {mApply, mUndo, mDiscard}) tools.addAction(action);
}

TransferDialog* DeviceMenu::transferDialog() const { return mTransfer; }

CompareDialog* DeviceMenu::compareDialog() const { return mCompare; }

void DeviceMenu::refresh() {
  DataSet* const dataSet = mWindow.host().dataSet();
  const std::string frame = mWindow.workbench().current().frame();
  mReadPage->setEnabled(dataSet && !dataSet->readItems(frame).empty());
  const bool edits = mWindow.workbench().current().hasPendingEdits();
  for (QAction* const action : {mUndo, mDiscard, mApply}) action->setEnabled(edits);
  Communication& communication = mWindow.host().communication();
  for (QAction* const action : mModes->actions()) {
    const auto mode = static_cast<CommunicationMode>(action->data().toInt());
    const bool on = mode == CommunicationMode::LocalAcceptance ? communication.isLocal()
                    : mode == CommunicationMode::Download      ? !communication.isLocal()
                    : mode == CommunicationMode::Busy          ? communication.isBusy()
                                                               : !communication.isBusy();
    action->setChecked(on);
  }
}

// --- reading and comparing

bool DeviceMenu::mayTransfer() {
  mWindow.panel().commit();
  if (!mWindow.host().transfer().running()) return true;
  mWindow.status().say(say("A transfer is running; wait for its end"));
  return false;
}

void DeviceMenu::showTransfer() {
  if (!mTransfer) mTransfer = new TransferDialog(mWindow.host(), mWindow.workbench().texts(), &mWindow);
  mTransfer->begin();
}

void DeviceMenu::readPage() {
  if (!mayTransfer()) return;
  mWindow.attempt(say("The page could not be read"), [&] {
    mWindow.host().readGroup(mWindow.workbench().current().frame(), [this, alive = QPointer(&mWindow)] {
      // One page needs no list of its own, unless something failed.
      if (alive && !mWindow.host().transfer().failures().empty()) showTransfer();
    });
  });
}

void DeviceMenu::readAll() {
  if (!mayTransfer()) return;
  if (mWindow.attempt(say("The device could not be read"), [&] { mWindow.host().readAll(); })) showTransfer();
}

void DeviceMenu::compare() {
  mWindow.panel().commit();
  if (!mCompare) mCompare = new CompareDialog(mWindow.host(), mWindow.workbench().texts(), &mWindow);
  mWindow.attempt(say("Data set and device could not be compared"), [&] { mCompare->begin(); });
}

// --- edits

void DeviceMenu::undoEdit() {
  mWindow.panel().commit();
  ViewSite* const front = mWindow.host().front();
  const std::vector<EditControl*> edits = front ? pendingEdits(front->view()) : std::vector<EditControl*>();
  if (edits.empty()) return mWindow.status().say(say("There is no edit on this page"));
  EditControl* edit = edits.back();
  for (EditControl* const each : edits)
    if (each->owner() && each->owner()->focused() == each) edit = each;
  mWindow.panel().act(*edit, [edit] { edit->restore(); }, UserInput::restoring(*edit));
  refresh();
}

void DeviceMenu::discardEdits() {
  mWindow.panel().commit();
  if (!mWindow.asks("Discard all edits?", "All values go back to what the data set last knew of the device.")) return;
  mWindow.host().discardEdits();
  refresh();
}

void DeviceMenu::applyEdits() {
  if (!mayTransfer()) return;
  mWindow.attempt(say("The edits could not be applied"), [&] {
    std::vector<Change> changes = mWindow.host().collectChanges();
    addOfflineEdits(changes);
    if (changes.empty()) return mWindow.status().say(say("There are no edits to apply; values with a button of their own are applied by it"));
    const std::vector<Change> left = mWindow.host().applyChanges(changes, [this, alive = QPointer(&mWindow)] {
      if (alive) refresh();
    });
    if (left.size() < changes.size()) showTransfer();
    QStringList names;
    for (const Change& change : left) names << qt(change.caption.empty() ? change.name : change.caption);
    if (!names.isEmpty()) mWindow.tell(say("Not all edits could go"), say("The data set has no parameter for: %1").arg(names.join(QStringLiteral(", "))));
  });
}

// What was accepted locally before and stands in no open view.
void DeviceMenu::addOfflineEdits(std::vector<Change>& changes) const {
  DataSet& dataSet = *mWindow.host().dataSet();
  for (const std::string& name : dataSet.edited()) {
    if (std::any_of(changes.begin(), changes.end(), [&](const Change& each) { return each.name == name; })) continue;
    const ParameterInfo info = dataSet.info(name);
    changes.push_back({{}, name, {}, dataSet.value(name), dataSet.offlineValue(name), info.unit, info.type, dataSet.homeGroup(name)});
  }
}

void DeviceMenu::setMode(int mode) {
  mWindow.panel().commit();
  mWindow.host().setCommunicationMode(static_cast<CommunicationMode>(mode));
  mWindow.panel().refresh();
  mWindow.header().refresh();
  refresh();
}

void DeviceMenu::simulator() {
  if (!mFaults) mFaults = new FaultsDialog(mWindow.host(), mWindow.theme(), mWindow.workbench().texts(), &mWindow);
  mFaults->show();
  mFaults->raise();
}

QString DeviceMenu::say(const char* english) const { return mWindow.workbench().texts().say(english); }

}  // namespace ostrand
