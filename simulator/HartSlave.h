#pragma once

#include "simulator/BusSlave.h"

namespace ostrand::simulator {

// About three transactions a second, each with as many values as one command carries; an output of several is tested by a
// command of its own. Texts are packed: no small letters.
class HartSlave : public BusSlave {
 public:
  HartSlave(Desktop& desktop, std::unique_ptr<Transmitter> transmitter) : BusSlave(desktop, std::move(transmitter), {0.35, 4}) {}

 protected:
  std::string_view errorKey(Verdict verdict) const override;
  bool isReadAlone(const Parameter& asked) const override;
  bool isCommandOfItsOwn(const Parameter& written) const override;
  Verdict check(const Parameter& parameter, std::string_view text, Value& value) const override;
};

}  // namespace ostrand::simulator
