#include "workbench/window/EditCommands.h"

#include <algorithm>

#include "host/PendingEdits.h"
#include "platform/controls/Component.h"

namespace ostrand {

void EditCommands::changed() const {
  if (onChanged) onChanged();
}

void EditCommands::undo() {
  mPanel.commit();
  ViewSite* const front = mWorkbench.host().front();
  const std::vector<EditControl*> edits = front ? pendingEdits(front->view()) : std::vector<EditControl*>();
  if (edits.empty()) return mUser.remark(mUser.say("There is no edit on this page"));
  EditControl* edit = edits.back();
  for (EditControl* const each : edits)
    if (each->owner() && each->owner()->focused() == each) edit = each;
  mPanel.act(*edit, [edit] { edit->restore(); }, UserInput::restoring(*edit));
  changed();
}

void EditCommands::discardAll() {
  mPanel.commit();
  const QString message = mUser.say("All values go back to what the data set last knew of the device.");
  if (mWorkbench.prompt().ask(mUser.say("Discard all edits?").toStdString(), message.toStdString()) != UserPrompt::kGoOn) return;
  mWorkbench.host().discardEdits();
  changed();
}

void EditCommands::apply() {
  if (!mTransfers.mayBegin()) return;
  mUser.attempt(mUser.say("The edits could not be applied"), [&] {
    std::vector<Change> changes = mWorkbench.host().collectChanges();
    addOfflineEdits(changes);
    if (changes.empty()) return mUser.remark(mUser.say("There are no edits to apply; values with a button of their own are applied by it"));
    const std::vector<Change> left = mWorkbench.host().applyChanges(changes, [this, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) changed();
    });
    if (left.size() < changes.size()) mTransfers.show();
    QStringList names;
    for (const Change& change : left) names << qt(change.caption.empty() ? change.name : change.caption);
    if (!names.isEmpty()) mUser.tell(mUser.say("Not all edits could go"), mUser.say("The data set has no parameter for: %1").arg(names.join(QStringLiteral(", "))));
  });
}

// What was accepted locally before and stands in no open view.
void EditCommands::addOfflineEdits(std::vector<Change>& changes) const {
  DataSet& dataSet = *mWorkbench.host().dataSet();
  for (const std::string& name : dataSet.edited()) {
    if (std::any_of(changes.begin(), changes.end(), [&](const Change& each) { return each.name == name; })) continue;
    const ParameterInfo info = dataSet.info(name);
    changes.push_back({{}, name, {}, dataSet.value(name), dataSet.offlineValue(name), info.unit, info.type, dataSet.homeGroup(name)});
  }
}

}  // namespace ostrand
