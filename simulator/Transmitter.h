#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/ParameterTable.h"

namespace ostrand::simulator {

// What a transmitter says to a write; each bus has its own words for it.
enum class Verdict {
  Accepted,
  CommandNotImplemented,
  AccessRestricted,
  InvalidSelection,
  TooSmall,
  TooLarge,
  WriteProtected,
  SpanTooSmall,
  SampleRunning,
  SampleNotRunning,
  SampleNotTaken,
  PointsTooClose,
  CalibrationSuspicious,
  NoDataAvailable,
  PulpTypeNotAllowed,
  RecipeNotCalibrated,
  TemperatureCorrectionTooLarge,
  SpecialGradePointInvalid,
};

struct Judgement {
  Verdict verdict = Verdict::Accepted;
  std::vector<std::string> items = {};  // that it is about
  bool isNothingNew = false;            // all values were there already

  bool isRefusal() const { return verdict != Verdict::Accepted; }
};

struct Writing {
  const Parameter* parameter;
  Value value;
};

// The device behind its bus: memory, measurement, actions. It moves on when it is looked at.
class Transmitter {
 public:
  virtual ~Transmitter() = default;

  virtual const ParameterTable& parameters() const = 0;
  // Whether there is a command at all that speaks of the parameter.
  virtual bool hasCommandFor(const Parameter& parameter) const = 0;
  // Brings everything that is measured up to the clock.
  virtual void look() = 0;
  // A read of these begins. To be asked for together may have a meaning: it ends a sample.
  virtual void beginRead(const std::vector<const Parameter*>& asked) = 0;
  // The text of a value as of the last look. To be read may have a meaning too: it acknowledges.
  virtual std::string read(const Parameter& parameter) = 0;
  // What write() would say now.
  virtual Judgement foresee(std::string_view command, const std::vector<Writing>& writings) = 0;
  // Takes over all of it, or nothing. The values have passed the checks of the bus.
  virtual Judgement write(std::string_view command, const std::vector<Writing>& writings) = 0;

  // What else the answer to this write tells, once it is taken over.
  virtual std::vector<std::string> alsoTold(const std::vector<Writing>& writings) const = 0;

  // What became of a write, also of one that did not come as far as write(): for whoever asks for it later.
  virtual void judged(std::string_view command, const Judgement& judgement) = 0;

  // A fault of the device itself; false if it knows none of this name. "none" ends them all.
  virtual bool setFault(std::string_view name, std::string_view argument) = 0;
  virtual std::optional<double> laboratoryValue(int sample) const = 0;
};

}  // namespace ostrand::simulator
