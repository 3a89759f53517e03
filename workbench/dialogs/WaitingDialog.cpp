#include "workbench/dialogs/WaitingDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "host/ActingValues.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/EditControl.h"
#include "workbench/plant/ValueText.h"

namespace ostrand {

WaitingDialog::WaitingDialog(Workbench& workbench, QWidget* parent)
    : DeviceDialog(workbench, "Values that wait to be written", parent), mNote(new QLabel), mList(new QTreeWidget) {
  mNote->setWordWrap(true);
  mList->setHeaderLabels(
      {texts().say("Value"), texts().say("Page"), texts().say("Device"), texts().say("New value"), texts().say("Unit"), texts().say("Result")});
  for (const int number : {DeviceHas, New}) mList->headerItem()->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
  mList->setRootIsDecorated(false);
  mList->setUniformRowHeights(true);
  mList->setAllColumnsShowFocus(true);
  // The first rows tell how wide: there may be hundreds.
  mList->header()->setResizeContentsPrecision(50);
  auto* const buttons = new QDialogButtonBox;
  mWrite = buttons->addButton(texts().say("Write ticked to device"), QDialogButtonBox::ActionRole);
  mDrop = buttons->addButton(texts().say("Drop ticked"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(texts().say("Close"), QDialogButtonBox::RejectRole);
  for (QPushButton* const each : {mWrite, mDrop}) each->setAutoDefault(false);
  connect(mWrite, &QPushButton::clicked, this, [this] { writeTicked(); });
  connect(mDrop, &QPushButton::clicked, this, [this] { dropTicked(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  connect(mList, &QTreeWidget::itemChanged, this, [this] { refresh(); });
  column().addWidget(mNote);
  column().addWidget(mList, 1);
  column().addWidget(buttons);
  openAs(1040, 480);
}

void WaitingDialog::begin() {
  if (!mWriting) {
    mChanges = device().waiting();
    mList->clear();
    // All rows are as high as the first one was when it was measured.
    mList->ensurePolished();
    const QSignalBlocker quiet(mList);
    for (const Change& change : mChanges) addRow(change);
    for (const EditControl* const edit : device().leftOut()) addLeftOut(*edit);
    fitColumns();
    mList->setCurrentItem(mList->topLevelItem(0));
  }
  refresh();
  show();
  raise();
  mList->setFocus();
}

QString WaitingDialog::pageText(const Change& change) const {
  const std::string group = host().dataSet() ? host().dataSet()->homeGroup(change.name) : std::string();
  return texts()(group.empty() ? change.contextTag : group);
}

void WaitingDialog::addRow(const Change& change) {
  auto* const row = new QTreeWidgetItem(mList);
  row->setText(Value, texts()(change.name));
  row->setToolTip(Value, qt(change.name));
  row->setText(Page, pageText(change));
  const std::string now = host().dataSet() ? host().dataSet()->value(change.name) : change.oldText;
  row->setText(DeviceHas, wholeValueText(host(), texts(), change.name, now));
  row->setText(New, wholeValueText(host(), texts(), change.name, change.newText));
  row->setText(Unit, texts().unit(change.unit));
  for (const int number : {DeviceHas, New}) row->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
  row->setCheckState(Value, Qt::Checked);
  if (const QString why = whyLeftOut(change); !why.isEmpty()) settle(*row, why, false);
}

// What makes the device act leaves by its button, or while its own page is looked at; never among others.
QString WaitingDialog::whyLeftOut(const Change& change) const {
  switch (actsOf(host().dataSet(), change.name)) {
    case Acts::No: return {};
    case Acts::ByButton: return texts().say("Left out: leaves by the button of its page");
    case Acts::ByPage:
      return host().dataSet()->homeGroup(change.name) == device().frame() ? QString()
                                                                          : texts().say("Left out: leaves only while its own page is open");
  }
  return {};
}

void WaitingDialog::addLeftOut(const EditControl& edit) {
  const std::string name(edit.parameterName());
  auto* const row = new QTreeWidgetItem(mList);
  row->setText(Value, texts()(name));
  row->setToolTip(Value, qt(name));
  row->setText(Page, host().dataSet() ? texts()(host().dataSet()->homeGroup(name)) : QString());
  row->setText(DeviceHas, wholeValueText(host(), texts(), name, edit.stored()));
  row->setText(New, qt(edit.displayText()));
  row->setText(Unit, texts().unit(edit.displayUnit()));
  for (const int number : {DeviceHas, New}) row->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
  settle(*row, edit.Correct() ? texts().say("Left out: leaves by the button of its page") : texts().say("Left out: wrong value"), false);
}

// The results take the room that is left.
void WaitingDialog::fitColumns() {
  for (int each = 0; each < Result; ++each) mList->resizeColumnToContents(each);
}

const Change& WaitingDialog::changeOf(const QTreeWidgetItem& row) const {
  return mChanges[static_cast<std::size_t>(mList->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(&row)))];
}

std::vector<QTreeWidgetItem*> WaitingDialog::ticked() const {
  std::vector<QTreeWidgetItem*> rows;
  for (int i = 0; i < mList->topLevelItemCount(); ++i)
    if (mList->topLevelItem(i)->checkState(Value) == Qt::Checked) rows.push_back(mList->topLevelItem(i));
  return rows;
}

void WaitingDialog::refresh() {
  const QString why = whyNoWriting();
  const std::size_t chosen = ticked().size();
  mWrite->setEnabled(!mWriting && chosen > 0 && why.isEmpty());
  mWrite->setToolTip(why);
  mDrop->setEnabled(!mWriting && chosen > 0);
  mNote->setText(mWriting                          ? texts().say("Writing; what comes of it stands in each row.")
                 : !why.isEmpty()                  ? texts().say("Nothing can be written: %1").arg(why)
                 : mList->topLevelItemCount() == 0 ? texts().say("Nothing waits to be written.")
                                                   : texts().say("%1 of %2 values are ticked.").arg(chosen).arg(mList->topLevelItemCount()));
}

// A row that does not wait any more stays, with what came of it, and cannot be ticked again.
void WaitingDialog::settle(QTreeWidgetItem& row, const QString& result, bool waits) {
  row.setText(Result, result);
  row.setToolTip(Result, result);
  if (!waits) {
    row.setFlags(row.flags() & ~Qt::ItemIsUserCheckable);
    row.setData(Value, Qt::CheckStateRole, QVariant());
  }
}

void WaitingDialog::changed() {
  fitColumns();
  refresh();
  if (onChanged) onChanged();
}

void WaitingDialog::writeTicked() {
  if (mWriting || !whyNoWriting().isEmpty()) return;
  if (renewRows()) return;
  std::vector<Change> chosen;
  mSent.clear();
  for (QTreeWidgetItem* const row : ticked()) {
    chosen.push_back(changeOf(*row));
    mSent.push_back(chosen.back().name);
  }
  if (chosen.empty()) return;
  for (QTreeWidgetItem* const row : ticked()) {
    const QSignalBlocker quiet(mList);
    row->setText(Result, texts().say("Waiting"));
  }
  mWriting = true;
  // The host asks before what acts is written: under its question the device may be left, and this dialog be gone.
  const std::weak_ptr alive(mAlive);
  try {
    // Where everything is refused at once it has ended before the call returns: what was left out is sorted first.
    const auto returned = std::make_shared<bool>(false), ended = std::make_shared<bool>(false);
    const std::function<void()> done = [this, alive, returned, ended] {
      *ended = true;
      if (*returned && !alive.expired()) finish();
    };
    const std::vector<LeftOut> left = host().exchange().applyChanges(chosen, done, device().frame());
    if (alive.expired()) return;
    const QSignalBlocker quiet(mList);
    for (QTreeWidgetItem* const row : ticked()) {
      const std::string& name = changeOf(*row).name;
      const auto found = std::find_if(left.begin(), left.end(), [&](const LeftOut& each) { return each.name == name; });
      if (found == left.end()) continue;
      std::erase(mSent, name);
      settle(*row, wordOf(found->why), true);
    }
    *returned = true;
    if (*ended) finish();
  } catch (...) {
    if (alive.expired()) return;
    mSent.clear();
    mNote->setText(qt(currentError().description));
  }
  if (mSent.empty()) mWriting = false;
  refresh();
}

// What was typed since the rows were filled is shown before it is written: true if a ticked row is another one now.
bool WaitingDialog::renewRows() {
  const std::vector<Change> now = device().waiting();
  const QSignalBlocker quiet(mList);
  bool renewed = false;
  for (QTreeWidgetItem* const row : ticked()) {
    Change& shown = mChanges[static_cast<std::size_t>(mList->indexOfTopLevelItem(row))];
    const auto found = std::find_if(now.begin(), now.end(), [&](const Change& each) { return each.name == shown.name; });
    if (found == now.end() || found->newText == shown.newText) continue;
    shown = *found;
    row->setText(New, wholeValueText(host(), texts(), shown.name, shown.newText));
    settle(*row, texts().say("Typed since: look at it, and write again"), true);
    renewed = true;
  }
  if (renewed) changed();
  return renewed;
}

QString WaitingDialog::wordOf(LeftOut::Why why) const {
  switch (why) {
    case LeftOut::Why::NoParameter: return texts().say("Left out: the data set has no such value");
    case LeftOut::Why::ByButton: return texts().say("Left out: leaves by the button of its page");
    case LeftOut::Why::ByPage: return texts().say("Left out: leaves only while its own page is open");
    case LeftOut::Why::Declined: return {};
  }
  return {};
}

void WaitingDialog::finish() {
  mWriting = false;
  const std::vector<Transfer::Failure>& failures = host().exchange().transfer().failures();
  const bool local = host().communication().isLocal();
  const QSignalBlocker quiet(mList);
  for (QTreeWidgetItem* const row : ticked()) {
    const std::string& name = changeOf(*row).name;
    if (std::find(mSent.begin(), mSent.end(), name) == mSent.end()) continue;
    const auto failed = std::find_if(failures.begin(), failures.end(), [&](const Transfer::Failure& each) { return each.item == name; });
    if (failed == failures.end())
      settle(*row, local ? texts().say("Accepted, not written") : texts().say("Written"), false);
    else
      settle(*row, failed->errorCode.empty() ? qt(failed->reason) : texts()(failed->errorCode), true);
  }
  changed();
}

void WaitingDialog::dropTicked() {
  if (mWriting) return;
  const QSignalBlocker quiet(mList);
  for (QTreeWidgetItem* const row : ticked()) {
    device().dropEdit(changeOf(*row).name);
    settle(*row, texts().say("Dropped"), false);
  }
  changed();
}

}  // namespace ostrand
