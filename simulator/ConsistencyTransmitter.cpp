#include "simulator/ConsistencyTransmitter.h"

#include <cmath>

namespace ostrand::simulator {

namespace {

constexpr double kLargestTemperatureCorrection = 10.0;  // degC

}  // namespace

ConsistencyTransmitter::ConsistencyTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed,
                                               std::vector<Part> parts, Limit limit)
    : BasicTransmitter(desktop, dataSet, line, seed, std::move(parts)), mLimit(limit), mOutput(mTable) {}

void ConsistencyTransmitter::powerUp() {
  mOutput.powerUp();
  BasicTransmitter::powerUp();
}

// --- Measurement ---

void ConsistencyTransmitter::look() {
  double consistency = measure();
  if (isFailSafe()) consistency = mOutput.failSafe(consistency);
  if (mOutput.isSimulated()) consistency = mTable.number("simulationValue", 0);
  mTable.set("consistency", consistency);
  showTemperatures(measuringTick(), mProcessCorrection, mElectronicsCorrection);

  const CurrentOutput current = mOutput.current(mTable.number("consistency"), isFailSafe());
  mTable.set("outputPercent", current.percent);
  mTable.set("outputCurrent", current.current);
  showStatus(current);
  const bool isOutOfService = failed("electronics") || failed("memory");
  mOutput.showFunctionBlock({isFailSafe(), isOutOfService, isOutOfLimits("consistency")});
}

// --- Status ---

void ConsistencyTransmitter::showStatus(const CurrentOutput& out) {
  const bool isOtherOut = watch({mLimit});
  raise("statusLoopTestActive", mOutput.isTested());
  raise("statusSamplingActive", isSampling());
  raise("statusSimulationActive", mOutput.isSimulated());
  raise("statusFlushingActive", measuringTick() != now());

  const double consistency = mTable.number("consistency");
  // Without a current output there is no other range than that of the sensor.
  const double highest = mTable.number("upperRangeValue", mTable.number("upperSensorLimit"));
  const double lowest = mTable.number("lowerRangeValue", mTable.number("lowerSensorLimit"));
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyAboveRange", consistency > highest);
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyBelowRange", consistency < lowest);
  mLog.follow(EventLog::Kind::Warning, "eventOutputSaturated", out.isSaturated && mTable.find("outputCurrent"));

  showBusStatus({mOutput.sideOfSensorLimits(consistency) != 0, isOtherOut, out.isSaturated, out.isFixed});
}

// --- Writes ---

Verdict ConsistencyTransmitter::verdictOn(const Writing& writing) const {
  const std::string& name = writing.parameter->name;
  const double number = writing.value.number;
  if (name == "temperatureCalibrationCorrection" && std::abs(number) > kLargestTemperatureCorrection) return Verdict::TemperatureCorrectionTooLarge;
  const bool isTest = writing.parameter->unit == "mA" && (name == "loopTestValue" || name == "mACalibrationFixedCurrent");
  return isTest && number != 0 && number < CurrentOutput::kLowestTest ? Verdict::TooSmall : Verdict::Accepted;
}

Judgement ConsistencyTransmitter::verdictOnRange(const std::vector<Writing>& writings) const {
  std::vector<std::string> range;
  for (const Writing& writing : writings)
    if (const std::string& name = writing.parameter->name; name == "lowerRangeValue" || name == "upperRangeValue") range.push_back(name);
  const bool isRefused = !range.empty() && isTooNarrow("lowerRangeValue", "upperRangeValue", mTable.number("minimumSpan", 0));
  return isRefused ? Judgement{Verdict::SpanTooSmall, std::move(range)} : Judgement{};
}

void ConsistencyTransmitter::takeEffect(const Writing& writing) {
  const std::string& name = writing.parameter->name;
  const double number = writing.value.number;
  const auto record = [&](std::string_view event) { mLog.count(EventLog::Kind::Info, event); };
  if (name == "activeRecipe") {
    record("eventActiveRecipeChanged");
  } else if (name == "targetMode") {
    mOutput.hold();
  } else if (name == "loopTestValue") {
    if (!mOutput.isTested() && number != 0) record("eventLoopTestRun");
    mOutput.test(number);
  } else if (name == "mACalibrationFixedCurrent") {
    mOutput.fixCurrent(number);
  } else if (name == "mACalibrationLowCurrent" || name == "mACalibrationHighCurrent") {
    record("eventCurrentOutputCalibrated");
  } else if (name == "temperatureCalibrationCorrection") {
    const bool isProcess = mTable.key("temperatureCalibrationMeasurement") != "electronicsTemperature";
    (isProcess ? mProcessCorrection : mElectronicsCorrection) = number;
    record("eventTemperatureCalibrated");
  }
}

}  // namespace ostrand::simulator
