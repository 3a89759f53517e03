#pragma once

#include <string>

#include "platform/base/Ref.h"
#include "platform/types/Messenger.h"
#include "platform/xml/Document.h"

namespace ostrand {

// What differs by bus: how a sample is started and stopped, whether a write is followed by a poll, and what
// an answer means to the user. The order of the operations is part of the interface.
//
// True says that the step was carried out and nothing failed here; the device's verdict comes later, through
// one of the three ...SetOnlineData operations.
class IBusDependent : public Counted {
 public:
  virtual std::string GetBusType() { return {}; }  // "Hart" or "Profibus"
  virtual bool SetActiveRecipe(const Ref<Messenger>&) { return false; }
  virtual bool TemperatureApply(const Ref<Messenger>&) { return false; }
  virtual bool RecipesApply(const Ref<Messenger>&) { return false; }
  virtual bool LaboratoryResultsApply(const Ref<Messenger>&) { return false; }
  virtual bool StartSampling1(const Ref<Messenger>&) { return false; }
  virtual bool StopSampling1(const Ref<Messenger>&) { return false; }
  virtual bool StartSampling2(const Ref<Messenger>&) { return false; }
  virtual bool StopSampling2(const Ref<Messenger>&) { return false; }
  virtual bool AdvancedSetOnlineData(const Document&, const Ref<Messenger>&) { return false; }
  virtual bool CalibrationSetOnlineData(const Document&, const Ref<Messenger>&) { return false; }
  virtual bool MeasurementSetOnlineData(const Document&, const Ref<Messenger>&) { return false; }
  virtual bool ResetEventLog(const Ref<Messenger>&, const std::string& eventLogTag) { return (void)eventLogTag, false; }
};

}  // namespace ostrand
