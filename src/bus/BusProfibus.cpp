#include "bus/BusProfibus.h"

#include "core/Requests.h"
#include "core/SampleCheck.h"
#include "platform/desktop/Desktop.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

namespace {

// Actions of the device, written to `executeAction`.
constexpr int kUnknownAction = 0;
constexpr int kStartSample1 = 3;
constexpr int kStartSample2 = 4;
constexpr int kStopSample1 = 5;
constexpr int kStopSample2 = 6;
constexpr int kFirstRecipe = 11;
constexpr int kRecipes = 8;
constexpr int kResetErrorEventLog = 150;
constexpr int kResetWarningEventLog = 151;
constexpr int kResetInfoEventLog = 152;
// Never written: what the view has written by itself, remembered so that the answers can be told apart.
constexpr int kTemperatureWritten = 81;
constexpr int kRecipesWritten = 82;
constexpr int kActiveRecipeWritten = 83;
constexpr int kLaboratoryResultsWritten = 84;
constexpr int kSampleJudged = -1;

constexpr double kStatusDelay = 1.0;  // seconds
constexpr double kSampleDelay = 2.0;

int actionOfEventLog(const std::string& tag) {
  if (tag == "resetErrorEventLog") return kResetErrorEventLog;
  if (tag == "resetWarningEventLog") return kResetWarningEventLog;
  if (tag == "resetInfoEventLog") return kResetInfoEventLog;
  return kUnknownAction;
}

}  // namespace

// --- operations that follow a write of the view

bool BusProfibus::apply(const char* prefix, int action, const char* requestName, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, prefix);
  bool done = false;
  proc.all([&] {
    mMessenger = messenger;
    mAction = action;
    done = AskActionStatus(requestName);
  });
  return done;
}

bool BusProfibus::SetActiveRecipe(const Ref<Messenger>& messenger) {
  constexpr const char* kPrefix = "BusProfibus IBusDependent_SetActiveRecipe: ";
  const Ref<LastError> lastError = mLastError;
  const bool done = apply(kPrefix, kActiveRecipeWritten, "activeRecipe", messenger);
  // This operation alone tells a False of the poll once more.
  if (!done) Procedure(messenger, lastError, kPrefix).reportLastError();
  return done;
}

bool BusProfibus::TemperatureApply(const Ref<Messenger>& messenger) {
  return apply("BusProfibus IBusDependent_TemperatureApply: ", kTemperatureWritten, "temperatureCalibration", messenger);
}

bool BusProfibus::RecipesApply(const Ref<Messenger>& messenger) {
  return apply("BusProfibus IBusDependent_RecipesApply: ", kRecipesWritten, "recipes", messenger);
}

bool BusProfibus::LaboratoryResultsApply(const Ref<Messenger>& messenger) {
  return apply("BusProfibus IBusDependent_LaboratoryResultsApply: ", kLaboratoryResultsWritten, "laboratoryResults", messenger);
}

// --- samples and event logs

bool BusProfibus::startSampling(const char* prefix, int action, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, prefix);
  bool done = false;
  proc.all([&] {
    mMessenger = messenger;
    mAction = action;
    const bool executed = ExecuteAction(action, "sampling");
    const bool asked = AskActionStatus("sampling");
    done = executed && asked;
  });
  return done;
}

bool BusProfibus::stopSampling(const char* prefix, int action, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, prefix);
  bool done = false;
  proc.all([&] {
    mMessenger = messenger;
    mAction = action;
    const bool executed = ExecuteAction(action, "sampling");
    const bool asked = ReadSampleData("sampling");
    done = executed && asked;
  });
  return done;
}

bool BusProfibus::StartSampling1(const Ref<Messenger>& messenger) {
  return startSampling("BusProfibus IBusDependent_StartSampling1: ", kStartSample1, messenger);
}
bool BusProfibus::StopSampling1(const Ref<Messenger>& messenger) {
  return stopSampling("BusProfibus IBusDependent_StopSampling1: ", kStopSample1, messenger);
}
bool BusProfibus::StartSampling2(const Ref<Messenger>& messenger) {
  return startSampling("BusProfibus IBusDependent_StartSampling2: ", kStartSample2, messenger);
}
bool BusProfibus::StopSampling2(const Ref<Messenger>& messenger) {
  return stopSampling("BusProfibus IBusDependent_StopSampling2: ", kStopSample2, messenger);
}

bool BusProfibus::ResetEventLog(const Ref<Messenger>& messenger, const std::string& eventLogTag) {
  Procedure proc(messenger, mLastError, "BusProfibus IBusDependent_ResetEventLog: ");
  bool done = false;
  proc.all([&] {
    mMessenger = messenger;
    mAction = actionOfEventLog(eventLogTag);
    done = ExecuteAction(mAction, "resetingEventLog");
  });
  return done;
}

// --- to the device

bool BusProfibus::ExecuteAction(int action, const std::string& requestName) {
  Procedure proc(mMessenger, mLastError, "BusProfibus ExecuteAction: ");
  return proc.all([&] {
    proc.messenger().SendRequest(Requests::fragment(requestName, "write", Requests::writeInteger("executeAction", action)), requestName);
    mAction = action;
  });
}

bool BusProfibus::readAfter(const char* prefix, double seconds, const std::string& requestName, const std::string& items) {
  const Ref<IBusDependent> pin(this);
  Procedure proc(mMessenger, mLastError, prefix);
  return proc.all([&] {
    const std::string request = Requests::document(requestName, "read", items);
    if (seconds > 0) mDesktop.wait(seconds);
    proc.messenger().ReadRequest(request, 0);
  });
}

bool BusProfibus::AskActionStatus(const std::string& requestName) {
  return readAfter("BusProfibus AskActionStatus: ", kStatusDelay, requestName, Requests::readItem("actionStatus"));
}

bool BusProfibus::ReadSampleData(const std::string& requestName) {
  // Both samples, whichever was stopped, and without the units that the other bus asks with.
  const std::string items = Requests::readItem("sample1ConsistencyAverage") + Requests::readItem("sample1Deviation") +
                            Requests::readItem("sample2ConsistencyAverage") + Requests::readItem("sample2Deviation");
  return readAfter("BusProfibus ReadSampleData: ", kSampleDelay, requestName, items);
}

bool BusProfibus::ReadRecipes(const std::string& requestName) {
  std::string items;
  for (int recipe = 1; recipe <= kRecipes; ++recipe) items += Requests::readItem("recipe" + std::to_string(recipe) + "PulpType");
  return readAfter("BusProfibus ReadRecipes: ", 0.0, requestName, items);
}

// --- the device's verdict

bool BusProfibus::CheckIfStatusMessage(const Document& doc) {
  Procedure proc(mMessenger, mLastError, "BusProfibus CheckIfStatusMessage: ");
  // The second sample's quality alone makes no status document.
  return proc.value(
      false, [&] { return static_cast<bool>(doc.select("//comm:item[starts-with(@name, \"actionStatus\") or @name = \"sample1Quality\" ]")); });
}

bool BusProfibus::CheckActionStatus(const Document& doc, const std::string& statusName) {
  Procedure proc(mMessenger, mLastError, "BusProfibus CheckActionStatus: ");
  return proc.value(false, [&] { return !doc.select("//comm:item[@name=\"" + statusName + "\" and comm:integerVal=\"1\"]"); });
}

bool BusProfibus::CheckSampleDataStatus(const Document& doc, const std::string& qualityName) {
  Procedure proc(mMessenger, mLastError, "BusProfibus CheckSampleDataStatus: ");
  return proc.value(false, [&] { return !doc.select("//comm:item[@name = \"" + qualityName + "\" and comm:integerVal=\"1\"]"); });
}

bool BusProfibus::CheckAllActionStatus(const Document& doc) {
  Procedure proc(mMessenger, mLastError, "BusProfibus CheckAllActionStatus: ");
  return proc.value(false, [&] {
    for (const Node& item : doc.selectAll("//comm:item[starts-with(@name,'actionStatus') and comm:integerVal=\"1\"]"))
      if (item.attribute("name") != "actionStatusOK") return false;
    return true;
  });
}

void BusProfibus::show(const std::string& title, const std::string& message) {
  if (!mMessenger) throwNothingThere("the messenger");
  mMessenger->ShowMessage(title, message);
}

bool BusProfibus::AdvancedSetOnlineData(const Document& data, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, "BusProfibus IBusDependent_AdvancedSetOnlineData: ");
  proc.all([&] {
    mMessenger = messenger;
    if (!CheckIfStatusMessage(data) || mAction != kTemperatureWritten) return;
    if (!CheckActionStatus(data, "actionStatusTempCorrectionTooLarge"))
      show("error", "actionStatusTempCorrectionTooLarge");
    else
      show("temperatureCalibration", "calibrationDoneReturnControlLoopToAutomaticControl");
  });
  return true;
}

bool BusProfibus::MeasurementSetOnlineData(const Document& data, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, "BusProfibus IBusDependent_MeasurementSetOnlineData: ");
  proc.all([&] {
    mMessenger = messenger;
    if (!CheckIfStatusMessage(data) || mAction != kActiveRecipeWritten) return;
    for (const char* status : {"actionStatusInvalidRecipeNumber", "actionStatusRecipeNotCalibrated"})
      if (!CheckActionStatus(data, status)) return show("error", status);
    show("activeRecipe", "actionStatusOK");
  });
  return true;
}

bool BusProfibus::CalibrationSetOnlineData(const Document& data, const Ref<Messenger>& messenger) {
  const Ref<IBusDependent> pin(this);
  Procedure proc(messenger, mLastError, "BusProfibus IBusDependent_CalibrationSetOnlineData: ");
  proc.all([&] {
    mMessenger = messenger;
    if (!CheckIfStatusMessage(data)) return;
    switch (mAction) {
      case kStartSample1:
      case kStartSample2:
        if (!CheckActionStatus(data, "actionStatusInvalidSampleNumber")) show("error", "actionStatusInvalidSampleNumber");
        break;
      case kStopSample1: judgeSample(data, "sample1"); break;
      case kStopSample2: judgeSample(data, "sample2"); break;
      case kRecipesWritten: judgeRecipes(data); break;
      case kLaboratoryResultsWritten: judgeLaboratoryResults(data); break;
      default: break;
    }
  });
  return true;
}

void BusProfibus::judgeSample(const Document& doc, const std::string& sample) {
  if (!CheckSampleDataStatus(doc, sample + "Quality"))
    show("error", sample + "DeviationLarge");
  else
    show("sampling", "actionStatusOK");
  mAction = kSampleJudged;
}

void BusProfibus::judgeRecipes(const Document& doc) {
  if (CheckActionStatus(doc, "actionStatusInvalidPulpType")) return show("recipes", "actionStatusOK");
  show("error", "actionStatusInvalidPulpType");
  bool all = true;
  for (int recipe = 0; recipe < kRecipes; ++recipe) all = ExecuteAction(kFirstRecipe + recipe, "recipes") && all;
  if (all) ReadRecipes("recipes");
}

void BusProfibus::judgeLaboratoryResults(const Document& doc) {
  for (const char* status : {"actionStatusCalibrationSampleNotTaken", "actionStatusCalibrationSuspicious", "actionStatusCalibrationError"})
    if (!CheckActionStatus(doc, status)) return show("error", status);
  show("laboratoryResults", kCalibrated);
}

}  // namespace ostrand
