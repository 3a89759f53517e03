#pragma once

#include "bus/IBusDependent.h"
#include "platform/trap/LastError.h"

namespace ostrand {

class Desktop;

// PROFIBUS: a write only triggers an action in the device. The strategy remembers which action it awaits,
// asks for the status some time later, and reads the answer when it comes back through the view. Nothing
// blocks: the waits pump events, and a second operation during a wait takes over the awaited action.
class BusProfibus : public IBusDependent {
 public:
  // The desktop outlives the strategy; the last error is shared with the view.
  BusProfibus(Desktop& desktop, Ref<LastError> lastError) : mDesktop(desktop), mLastError(std::move(lastError)) {}

  std::string GetBusType() override { return "Profibus"; }
  bool SetActiveRecipe(const Ref<Messenger>& messenger) override;
  bool TemperatureApply(const Ref<Messenger>& messenger) override;
  bool RecipesApply(const Ref<Messenger>& messenger) override;
  bool LaboratoryResultsApply(const Ref<Messenger>& messenger) override;
  bool StartSampling1(const Ref<Messenger>& messenger) override;
  bool StopSampling1(const Ref<Messenger>& messenger) override;
  bool StartSampling2(const Ref<Messenger>& messenger) override;
  bool StopSampling2(const Ref<Messenger>& messenger) override;
  bool AdvancedSetOnlineData(const Document& data, const Ref<Messenger>& messenger) override;
  bool CalibrationSetOnlineData(const Document& data, const Ref<Messenger>& messenger) override;
  bool MeasurementSetOnlineData(const Document& data, const Ref<Messenger>& messenger) override;
  bool ResetEventLog(const Ref<Messenger>& messenger, const std::string& eventLogTag) override;

 protected:
  // Whether nothing but actionStatusOK is raised: the general form of the tests below. No flow asks it.
  bool CheckAllActionStatus(const Document& doc);

 private:
  bool apply(const char* prefix, int action, const char* requestName, const Ref<Messenger>& messenger);
  bool startSampling(const char* prefix, int action, const Ref<Messenger>& messenger);
  bool stopSampling(const char* prefix, int action, const Ref<Messenger>& messenger);

  bool ExecuteAction(int action, const std::string& requestName);
  bool AskActionStatus(const std::string& requestName);
  bool ReadSampleData(const std::string& requestName);
  bool ReadRecipes(const std::string& requestName);
  bool readAfter(const char* prefix, double seconds, const std::string& requestName, const std::string& items);

  bool CheckIfStatusMessage(const Document& doc);
  // True means that the condition is not raised.
  bool CheckActionStatus(const Document& doc, const std::string& statusName);
  bool CheckSampleDataStatus(const Document& doc, const std::string& qualityName);

  void show(const std::string& title, const std::string& message);
  void judgeSample(const Document& doc, const std::string& sample);
  void judgeRecipes(const Document& doc);
  void judgeLaboratoryResults(const Document& doc);

  Desktop& mDesktop;
  Ref<LastError> mLastError;
  int mAction = 0;
  Ref<Messenger> mMessenger;
};

}  // namespace ostrand
