#include "workbench/window/DeviceMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"
#include "workbench/window/CompareDialog.h"
#include "workbench/window/FaultsDialog.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/PendingEdits.h"
#include "workbench/window/TransferDialog.h"

namespace ostrand {

namespace {

constexpr std::pair<CommunicationMode, const char*> kModes[] = {{CommunicationMode::Download, "Download to device (11)"},
                                                                {CommunicationMode::LocalAcceptance, "Local acceptance (10)"},
                                                                {CommunicationMode::Busy, "Communication busy (20)"},
                                                                {CommunicationMode::Free, "Communication free (21)"}};

}  // namespace

DeviceMenu::DeviceMenu(MainWindow& window, QToolBar& tools) : mWindow(window) {
  QMenu* const menu = window.menuBar()->addMenu(QStringLiteral("&Device"));
  const auto add = [&](QMenu* to, const QString& text, const QKeySequence& keys, void (DeviceMenu::*command)()) {
    QAction* const action = to->addAction(text, &window, [this, command] { (this->*command)(); });
    action->setShortcut(keys);
    return action;
  };
  mReadPage = add(menu, QStringLiteral("&Read this page"), QKeySequence(Qt::Key_F5), &DeviceMenu::readPage);
  QAction* const readAllAction = add(menu, QStringLiteral("Read &all"), QKeySequence(Qt::SHIFT | Qt::Key_F5), &DeviceMenu::readAll);
  QAction* const compareAction = add(menu, QStringLiteral("&Compare data set with device…"), QKeySequence(Qt::Key_F7), &DeviceMenu::compare);
  menu->addSeparator();
  mUndo = add(menu, QStringLiteral("&Undo this edit"), {}, &DeviceMenu::undoEdit);
  mDiscard = add(menu, QStringLiteral("&Discard all edits"), {}, &DeviceMenu::discardEdits);
  mApply = add(menu, QStringLiteral("A&pply all edits"), QKeySequence(Qt::CTRL | Qt::Key_Return), &DeviceMenu::applyEdits);
  menu->addSeparator();
  mModes = menu->addMenu(QStringLiteral("C&onnection"));
  for (const auto& [mode, text] : kModes) {
    QAction* const action = mModes->addAction(QString::fromLatin1(text), &window, [this, mode = static_cast<int>(mode)] { setMode(mode); });
    action->setCheckable(true);
    action->setData(static_cast<int>(mode));
  }
  add(menu, QStringLiteral("&Simulator: faults and speed…"), {}, &DeviceMenu::simulator);

  mReadPage->setIconText(QStringLiteral("Read page"));
  readAllAction->setIconText(QStringLiteral("Read all"));
  compareAction->setIconText(QStringLiteral("Compare"));
  mUndo->setIconText(QStringLiteral("Undo edit"));
  mDiscard->setIconText(QStringLiteral("Discard edits"));
  mApply->setIconText(QStringLiteral("Apply edits"));
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
  mWindow.status().say(QStringLiteral("A transfer is running; wait for its end"));
  return false;
}

void DeviceMenu::showTransfer() {
  if (!mTransfer) mTransfer = new TransferDialog(mWindow.host(), mWindow.workbench().texts(), &mWindow);
  mTransfer->begin();
}

void DeviceMenu::readPage() {
  if (!mayTransfer()) return;
  mWindow.attempt(QStringLiteral("The page could not be read"), [&] {
    mWindow.host().readGroup(mWindow.workbench().current().frame(), [this, alive = QPointer(&mWindow)] {
      // One page needs no list of its own, unless something failed.
      if (alive && !mWindow.host().transfer().failures().empty()) showTransfer();
    });
  });
}

void DeviceMenu::readAll() {
  if (!mayTransfer()) return;
  if (mWindow.attempt(QStringLiteral("The device could not be read"), [&] { mWindow.host().readAll(); })) showTransfer();
}

void DeviceMenu::compare() {
  mWindow.panel().commit();
  if (!mCompare) mCompare = new CompareDialog(mWindow.host(), mWindow.workbench().texts(), &mWindow);
  mWindow.attempt(QStringLiteral("Data set and device could not be compared"), [&] { mCompare->begin(); });
}

// --- edits

void DeviceMenu::undoEdit() {
  mWindow.panel().commit();
  ViewSite* const front = mWindow.host().front();
  const std::vector<EditControl*> edits = front ? pendingEdits(front->view()) : std::vector<EditControl*>();
  if (edits.empty()) return mWindow.status().say(QStringLiteral("There is no edit on this page"));
  EditControl* edit = edits.back();
  for (EditControl* const each : edits)
    if (each->owner() && each->owner()->focused() == each) edit = each;
  mWindow.panel().act(*edit, [edit] { edit->restore(); }, UserInput::restoring(*edit));
  refresh();
}

void DeviceMenu::discardEdits() {
  mWindow.panel().commit();
  if (mWindow.workbench().prompt().ask("Discard all edits?", "All values go back to what the data set last knew of the device.") != UserPrompt::kGoOn) return;
  mWindow.host().discardEdits();
  refresh();
}

void DeviceMenu::applyEdits() {
  if (!mayTransfer()) return;
  mWindow.attempt(QStringLiteral("The edits could not be applied"), [&] {
    std::vector<Change> changes = mWindow.host().collectChanges();
    addOfflineEdits(changes);
    if (changes.empty()) return mWindow.status().say(QStringLiteral("There are no edits to apply; values with a button of their own are applied by it"));
    const std::vector<Change> left = mWindow.host().applyChanges(changes, [this, alive = QPointer(&mWindow)] {
      if (alive) refresh();
    });
    if (left.size() < changes.size()) showTransfer();
    QStringList names;
    for (const Change& change : left) names << qt(change.caption.empty() ? change.name : change.caption);
    if (!names.isEmpty()) mWindow.tell(QStringLiteral("Not all edits could go"), QStringLiteral("The data set has no parameter for: %1").arg(names.join(QStringLiteral(", "))));
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
  if (!mFaults) mFaults = new FaultsDialog(mWindow.host(), mWindow.theme(), &mWindow);
  mFaults->show();
  mFaults->raise();
}

}  // namespace ostrand
