#include "workbench/window/Departure.h"

namespace ostrand {

void Departure::warnOfForcedOutput(PlantDevice& device) const {
  if (!device.outputs().mayBeForced()) return;
  mUser.tell(mUser.say("The output may still be forced"),
             mUser.say("%1 has not answered that its loop test is over. Read the device, or stop the test there, before the loop goes back to automatic control.").arg(qt(device.title())));
}

bool Departure::mayReplaceDataSet(PlantDevice& device) const {
  return !device.hasUnsavedEdits() || asks("There are edits that nobody has saved", "They are lost when another data set is opened. Open it all the same?");
}

bool Departure::mayClose() const {
  mPanel.commit();
  QStringList driven;
  bool running = false, edits = false;
  for (const auto& device : mWorkbench.devices()) {
    if (device->outputs().mayBeForced()) driven << qt(device->title());
    running = running || (!device->busyWith().empty() && !device->outputs().mayBeForced());
    edits = edits || device->hasUnsavedEdits();
  }
  if (!driven.isEmpty() &&
      !asks("The output may still be forced", "%1: the device has not answered that the loop test is over. Close all the same, and leave the output as it is?",
            driven.join(QStringLiteral(", "))))
    return false;
  if (running && !asks("A test or a sampling is running", "The device goes on with it when the window is closed. Close all the same?")) return false;
  if (edits && !asks("There are edits that nobody has saved", "They are lost when the window is closed. Close all the same?")) return false;
  ViewSite* const front = mWorkbench.host().front();
  return !front || running || !driven.isEmpty() || front->leave();
}

// A question in the user's language, with `what` in the place of %1.
bool Departure::asks(const char* title, const char* message, const QString& what) const {
  const QString asked = mUser.say(message);
  return mWorkbench.prompt().ask(mUser.say(title).toStdString(), (what.isEmpty() ? asked : asked.arg(what)).toStdString()) == UserPrompt::kGoOn;
}

}  // namespace ostrand
