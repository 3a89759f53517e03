#pragma once

#include "simulator/BusSlave.h"

namespace ostrand::simulator {

// Ten transactions a second, each with a whole block of values. A write that makes the device act is always acknowledged;
// what became of it stands in the status items.
//
//   write executeAction                    starts or stops a sample, resets an event log, ...
//   read  actionStatus                     is answered with every status item of the last write, 1 for what is raised
//   read  of both samples' averages and    brings sample1Quality and sample2Quality along, 1 for a sample that is too
//         deviations, and nothing else     uneven or not there
class ProfibusSlave : public BusSlave {
 public:
  ProfibusSlave(Desktop& desktop, std::unique_ptr<Transmitter> transmitter) : BusSlave(desktop, std::move(transmitter), {0.1, 20}) {}

 protected:
  std::string_view errorKey(Verdict verdict) const override;
  Verdict check(const Parameter& parameter, std::string_view text, Value& value) const override;
  std::vector<std::string> answeredWith(std::vector<std::string> names) const override;
  bool acknowledgesRefusal(std::string_view command) const override;
};

}  // namespace ostrand::simulator
