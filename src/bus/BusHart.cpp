#include "bus/BusHart.h"

#include "core/Requests.h"
#include "core/SampleCheck.h"
#include "platform/desktop/Desktop.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

bool BusHart::startSampling(const char* prefix, int sample, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, prefix);
  return proc.all(
      [&] { proc.messenger().SendRequest(Requests::fragment("sampling", "write", Requests::writeInteger("sampleStart", sample)), "sampling"); });
}

bool BusHart::stopSampling(const char* prefix, const std::string& sample, const Ref<Messenger>& messenger) {
  // Nothing is written: the read of the averages is what ends a sample.
  Procedure proc(messenger, mLastError, prefix);
  return proc.all([&] {
    const std::string items = Requests::readItem(sample + "Deviation", "noUnit", "floatVal") +
                              Requests::readItem(sample + "ConsistencyAverage", "%", "floatVal") +
                              Requests::readItem(sample + "ShearForceAverage", "N", "floatVal");
    proc.messenger().ReadRequest(Requests::document("sampling", "read", items), 0);
  });
}

bool BusHart::StartSampling1(const Ref<Messenger>& messenger) { return startSampling("BusHart IBusDependent_StartSampling1: ", 0, messenger); }
bool BusHart::StartSampling2(const Ref<Messenger>& messenger) { return startSampling("BusHart IBusDependent_StartSampling2: ", 1, messenger); }
bool BusHart::StopSampling1(const Ref<Messenger>& messenger) { return stopSampling("BusHart IBusDependent_StopSampling1: ", "sample1", messenger); }
bool BusHart::StopSampling2(const Ref<Messenger>& messenger) { return stopSampling("BusHart IBusDependent_StopSampling2: ", "sample2", messenger); }

bool BusHart::AdvancedSetOnlineData(const Document& data, const Ref<Messenger>& messenger) {
  // True also after a failure, unlike the other operations.
  Procedure proc(messenger, mLastError, "BusHart IBusDependent_AdvancedSetOnlineData: ");
  proc.all([&] { showWhenFinal(data, "temperatureCalibration", "calibrationDoneReturnControlLoopToAutomaticControl", proc.messenger()); });
  return true;
}

bool BusHart::CalibrationSetOnlineData(const Document& data, const Ref<Messenger>& messenger) {
  Procedure proc(messenger, mLastError, "BusHart IBusDependent_CalibrationSetOnlineData: ");
  return proc.all([&] {
    const auto read = [&](const Node& item) { return floatOf(item, mDesktop.locale()); };
    warnOfLargeDeviation(data, "sample1", read, proc.messenger());
    warnOfLargeDeviation(data, "sample2", read, proc.messenger());
    showWhenFinal(data, "laboratoryResults", kCalibrated, proc.messenger());
  });
}

}  // namespace ostrand
