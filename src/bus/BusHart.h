#pragma once

#include "bus/IBusDependent.h"
#include "platform/base/Locale.h"
#include "platform/trap/LastError.h"

namespace ostrand {

class Desktop;

// HART: the transmitter answers a write with the response itself, so nothing is polled and nothing is
// remembered; the deviation of a sample is judged here.
class BusHart : public IBusDependent {
 public:
  // The desktop outlives the strategy; the last error is shared with the view.
  BusHart(Desktop& desktop, Ref<LastError> lastError) : mDesktop(desktop), mLastError(std::move(lastError)) {}

  std::string GetBusType() override { return "Hart"; }
  bool SetActiveRecipe(const Ref<Messenger>&) override { return true; }
  bool TemperatureApply(const Ref<Messenger>&) override { return true; }
  bool RecipesApply(const Ref<Messenger>&) override { return true; }
  bool LaboratoryResultsApply(const Ref<Messenger>&) override { return true; }
  bool StartSampling1(const Ref<Messenger>& messenger) override;
  bool StopSampling1(const Ref<Messenger>& messenger) override;
  bool StartSampling2(const Ref<Messenger>& messenger) override;
  bool StopSampling2(const Ref<Messenger>& messenger) override;
  bool AdvancedSetOnlineData(const Document& data, const Ref<Messenger>& messenger) override;
  bool CalibrationSetOnlineData(const Document& data, const Ref<Messenger>& messenger) override;
  bool MeasurementSetOnlineData(const Document&, const Ref<Messenger>&) override { return true; }
  // The event logs of a HART device are not reset from here.
  bool ResetEventLog(const Ref<Messenger>&, const std::string&) override { return true; }

 private:
  bool startSampling(const char* prefix, int sample, const Ref<Messenger>& messenger);
  bool stopSampling(const char* prefix, const std::string& sample, const Ref<Messenger>& messenger);

  Desktop& mDesktop;
  Ref<LastError> mLastError;
};

}  // namespace ostrand
