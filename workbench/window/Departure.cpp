#include "workbench/window/Departure.h"

#include <algorithm>

#include "platform/controls/EditControl.h"

namespace ostrand {

namespace {

constexpr double kSoon = 0.2;

bool isActing(PlantDevice& device) { return device.outputs().mayBeForced() || device.outputs().sampling(); }

QString titles(const std::vector<PlantDevice*>& devices) {
  QStringList names;
  for (PlantDevice* const device : devices) names << qt(device->title());
  return names.join(QStringLiteral(", "));
}

}  // namespace

bool Departure::mayLeave(const PlantTree::Page& page) const {
  PlantDevice& device = mWorkbench.current();
  if (!device.outputs().mayBeForced(OutputKind::Simulation)) return true;
  const bool leavesDevice = page.device != &device;
  // From one page to another the question is asked where the simulation stands.
  const std::vector<ForcedOutput> forced = device.outputs().forced();
  const bool standsHere = std::any_of(forced.begin(), forced.end(), [&](const ForcedOutput& each) {
    return each.kind == OutputKind::Simulation && device.host().dataSet() && device.host().dataSet()->homeGroup(each.item) == device.frame();
  });
  if (!leavesDevice && (!standsHere || page.frame == device.frame())) return true;
  const QString message =
      mUser.say("%1: the output is simulated. Whoever reads it takes the simulated value for the measured one.").arg(qt(device.title()));
  const std::size_t answer =
      mWorkbench.prompt().choose(mUser.say("The output may be forced"), message,
                                 {mUser.say("Free the output and leave"), mUser.say("Leave it simulated"), mUser.say("Stay here")});
  if (answer == 0) device.outputs().freeOutput();
  return answer != 2;
}

void Departure::warnOfForcedOutput(PlantDevice& device) const {
  if (!device.outputs().mayBeForced(OutputKind::LoopTest)) return;
  // A stop may be on its way: what it comes to is told then, by the page or here, and not both.
  if (!device.host().communication().idle()) {
    mWorkbench.desktop().schedule(kSoon, [this, &device, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) warnOfForcedOutput(device);
    });
    return;
  }
  mUser.tell(
      mUser.say("The output may still be forced"),
      mUser
          .say(
              "%1 has not answered that its loop test is over. Read the device, or stop the test there, before the loop goes back to automatic control.")
          .arg(qt(device.title())));
}

bool Departure::mayHandIn(PlantDevice& device) const {
  if (!device.outputs().holdsDocuments()) return true;
  const QString title = mUser.say("A loop test may still drive the output");
  if (device.host().communication().device() && device.status().answers()) {
    mUser.tell(
        title,
        mUser
            .say(
                "%1: stop the test first. Until then no edit is discarded and no other data set is opened: the page of the test needs its values to stop it.")
            .arg(qt(device.title())));
    return false;
  }
  const QString message =
      mUser.say("%1 does not answer. Look at the device itself: go on only if its output follows the measurement.").arg(qt(device.title()));
  if (mWorkbench.prompt().choose(title, message, {mUser.say("I have seen that the output is free"), mUser.say("Stay here")}) != 0) return false;
  device.outputs().confirmedByUser();
  return true;
}

bool Departure::mayReplaceDataSet(PlantDevice& device) const {
  return mayHandIn(device) && mayLose({&device}, {mUser.say("Save it first"), mUser.say("Open without saving"), mUser.say("Stay here")});
}

bool Departure::mayLose(const std::vector<PlantDevice*>& devices, const QStringList& answers) const {
  std::vector<PlantDevice*> unsaved;
  std::copy_if(devices.begin(), devices.end(), std::back_inserter(unsaved), [](PlantDevice* each) { return each->hasUnsavedValues(); });
  if (unsaved.empty()) return true;
  const QString message = mUser.say("%1: values have been edited, read or written since the data set was saved last.").arg(titles(unsaved));
  const std::size_t answer = mWorkbench.prompt().choose(mUser.say("There are values that nobody has saved"), message, answers);
  if (answer == 0)
    return std::all_of(unsaved.begin(), unsaved.end(), [this](PlantDevice* each) { return save && save(*each) && mayLoseTheRest(*each); });
  return answer == 1;
}

// What no file takes, and the page alone keeps.
bool Departure::mayLoseTheRest(PlantDevice& device) const {
  QStringList names;
  for (const EditControl* const edit : device.leftOut()) names << mWorkbench.texts()(std::string(edit->parameterName()));
  if (names.isEmpty()) return true;
  const QString message = mUser.say("%1: the data set is saved, but without: %2").arg(qt(device.title()), names.join(QStringLiteral(", ")));
  return mWorkbench.prompt().choose(mUser.say("There are values that nobody has saved"), message,
                                    {mUser.say("Go on without them"), mUser.say("Stay here")}) == 0;
}

bool Departure::mayClose(std::function<void()> close) const {
  mPanel.commit();
  std::vector<PlantDevice*> all, acting;
  for (const auto& device : mWorkbench.devices()) {
    all.push_back(device.get());
    if (isActing(*device)) acting.push_back(device.get());
  }
  if (!acting.empty() && !mayLeaveRunning(acting, std::move(close))) return false;
  if (!mayLose(all, {mUser.say("Save and close"), mUser.say("Close without saving"), mUser.say("Stay here")})) return false;
  // Who leaves a test running has been asked; the page would ask again, and stop it.
  ViewSite* const front = mWorkbench.host().views().front();
  return !front || !acting.empty() || front->leave();
}

// True if the window may close although something goes on.
bool Departure::mayLeaveRunning(const std::vector<PlantDevice*>& acting, std::function<void()> close) const {
  const QString message =
      mUser.say("%1: an output may be forced, or a sample may be running. The device goes on with it when the window is closed.").arg(titles(acting));
  const std::size_t answer =
      mWorkbench.prompt().choose(mUser.say("Something is still running"), message,
                                 {mUser.say("Stop it and close"), mUser.say("Close and leave it running"), mUser.say("Stay here")});
  if (answer == 0) stopAll(acting, std::move(close));
  return answer == 1;
}

// The window closes when every device has confirmed that nothing of it is left; else it stays, and says of which.
void Departure::stopAll(const std::vector<PlantDevice*>& devices, std::function<void()> close) const {
  mUser.remark(mUser.say("Stopping; the window closes when the device has confirmed it"));
  const auto waiting = std::make_shared<std::size_t>(2 * devices.size());
  const auto done = [this, waiting, devices, close, alive = std::weak_ptr(mAlive)](bool) {
    if (--*waiting > 0 || alive.expired()) return;
    std::vector<PlantDevice*> left;
    std::copy_if(devices.begin(), devices.end(), std::back_inserter(left), [](PlantDevice* each) { return isActing(*each); });
    if (left.empty()) return close();
    mUser.remark({});
    mUser.tell(mUser.say("The output may still be forced"),
               mUser.say("%1 has not confirmed that it has ended. The window stays open.").arg(titles(left)));
  };
  for (PlantDevice* const device : devices) {
    device->outputs().mayBeForced() ? device->outputs().freeOutput(done) : done(true);
    device->outputs().sampling() ? device->outputs().stopSampling(done) : done(true);
  }
}

}  // namespace ostrand
