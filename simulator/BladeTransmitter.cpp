#include "simulator/BladeTransmitter.h"

#include <algorithm>
#include <cmath>

#include "simulator/BladeNames.h"
#include "simulator/Damping.h"

namespace ostrand::simulator {

namespace {

constexpr double kLargestTemperatureCorrection = 10.0;  // degC

// What is written to executeAction.
enum Action {
  kStartSample1 = 3,
  kStartSample2 = 4,
  kStopSample1 = 5,
  kStopSample2 = 6,
  kFirstRecipe = 11,  // makes ready to read this recipe
  kLastRecipe = 18,
  kResetErrorEventLog = 150,
  kResetWarningEventLog = 151,
  kResetInfoEventLog = 152,
};

int actionOf(double number) { return static_cast<int>(std::clamp(number, 0.0, 999.0)); }

}  // namespace

BladeTransmitter::BladeTransmitter(const Desktop& desktop, const Document& dataSet, const Settings& settings, unsigned seed)
    : BasicTransmitter(desktop, dataSet, settings.line, seed, {{"sensor", "statusSensorFailure", "eventSensorFailure", true}}),
      mBus(settings.bus),
      mCurve(mTable, settings.blade),
      mProcess(mFlow, mCurve.blade(), seed),
      mFlushing(mTable),
      mSampling(mTable, mLog, mCurve, mFlushing, mProcess, mFlow),
      mOutput(mTable) {
  if (mBus == Bus::Profibus) {
    mActionStatus.emplace(mTable);
    for (const int sample : {1, 2}) {
      Parameter quality;
      quality.name = sampleName(sample, "Quality");
      quality.type = Parameter::Type::Integer;
      quality.unit = "noUnit";
      mTable.add(std::move(quality));
    }
  }
  BladeTransmitter::powerUp();
}

void BladeTransmitter::powerUp() {
  mSampling.forget();
  if (mActionStatus) mActionStatus->clear();
  mOutput.powerUp();
  mFlushing.begin(now());
  BasicTransmitter::powerUp();
}

// --- Measurement ---

double BladeTransmitter::dampedForce(std::int64_t tick) const {
  return damped(mTable.number("damping", 0), [&](std::int64_t back) { return mProcess.shearForce(tick - back); });
}

void BladeTransmitter::look() {
  showMeasurement();
  const CurrentOutput current = mOutput.current(mTable.number("consistency"), isFailSafe());
  mTable.set("outputPercent", current.percent);
  mTable.set("outputCurrent", current.current);
  showStatus(current);
  const bool isOutOfService = failed("electronics") || failed("memory");
  mOutput.showFunctionBlock({isFailSafe(), isOutOfService, isOutOfLimits("consistency")});
}

void BladeTransmitter::hold() { mOutput.keepLast(); }

void BladeTransmitter::showMeasurement() {
  const std::int64_t tick = mFlushing.undisturbed(now());
  const bool blind = failed("sensor");
  const double force = mProcess.shearForce(tick);
  double consistency = blind ? kNothing : mCurve.reading(mCurve.activeRecipe(), dampedForce(tick));
  mTable.set("shearForce", blind ? kNothing : force);
  mTable.set("consistencyUnfiltered", blind ? kNothing : mCurve.reading(mCurve.activeRecipe(), force));
  if (isFailSafe()) {
    const std::string_view type = mTable.key("failSafeType");
    if (type == "failSafeTypeDefaultValue") consistency = mTable.number("failSafeDefaultValue", 0);
    if (type == "failSafeTypeLastValidValue") consistency = mOutput.lastConsistency();
  }
  if (mOutput.isSimulated()) consistency = mTable.number("simulationValue", 0);
  mTable.set("consistency", consistency);
  showTemperatures(tick, mProcessCorrection, mElectronicsCorrection);
}

// --- Status ---

void BladeTransmitter::showStatus(const CurrentOutput& out) {
  const bool isOtherOut = watch({{"shearForce", "statusShearForceOutOfLimits", "eventShearForceHigh"}});
  raise("statusLoopTestActive", mOutput.isTested());
  raise("statusSamplingActive", mSampling.running() != 0);
  raise("statusSimulationActive", mOutput.isSimulated());
  raise("statusFlushingActive", mFlushing.undisturbed(now()) != now());

  const double consistency = mTable.number("consistency");
  // Without a current output there is no other range than that of the sensor.
  const double highest = mTable.number("upperRangeValue", mTable.number("upperSensorLimit"));
  const double lowest = mTable.number("lowerRangeValue", mTable.number("lowerSensorLimit"));
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyAboveRange", consistency > highest);
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyBelowRange", consistency < lowest);
  mLog.follow(EventLog::Kind::Warning, "eventOutputSaturated", out.isSaturated && mTable.find("outputCurrent"));

  showBusStatus({mOutput.sideOfSensorLimits(consistency) != 0, isOtherOut, out.isSaturated, out.isFixed});
}

// --- Reads ---

void BladeTransmitter::beginRead(const std::vector<const Parameter*>& asked) {
  if (mBus != Bus::Hart || mSampling.running() == 0) return;
  // Who wants the sample asks for its average and deviation, and for nothing that is not the sample's. Who reads them among
  // other values only looks.
  bool hasAverage = false;
  bool hasDeviation = false;
  for (const Parameter* parameter : asked) {
    if (!parameter->name.starts_with(sampleName(mSampling.running(), ""))) return;
    hasAverage = hasAverage || parameter->name.ends_with("ConsistencyAverage");
    hasDeviation = hasDeviation || parameter->name.ends_with("Deviation");
  }
  if (hasAverage && hasDeviation) mSampling.stop(mSampling.running(), moment());
}

std::string BladeTransmitter::read(const Parameter& parameter) {
  // Of a sample that is running, the average so far.
  if (mSampling.running() != 0 && parameter.name.starts_with(sampleName(mSampling.running(), ""))) mSampling.show(moment());
  return BasicTransmitter::read(parameter);
}

// --- Writes ---

Verdict BladeTransmitter::verdictOnAction(int action) const {
  switch (action) {
    // The other sample is not ended without being asked for; this one begins anew.
    case kStartSample1: return mSampling.running() == 2 ? Verdict::SampleRunning : Verdict::Accepted;
    case kStartSample2: return mSampling.running() == 1 ? Verdict::SampleRunning : Verdict::Accepted;
    case kStopSample1: return mSampling.running() == 1 ? Verdict::Accepted : Verdict::SampleNotRunning;
    case kStopSample2: return mSampling.running() == 2 ? Verdict::Accepted : Verdict::SampleNotRunning;
    case kResetErrorEventLog:
    case kResetWarningEventLog:
    case kResetInfoEventLog: return Verdict::Accepted;
    default: break;
  }
  return action >= kFirstRecipe && action <= kLastRecipe ? Verdict::Accepted : Verdict::CommandNotImplemented;
}

Judgement BladeTransmitter::judge(std::string_view command, const std::vector<Writing>& writings) {
  bool isSpecialGrade = false;
  std::vector<std::string> range;
  for (const Writing& writing : writings) {
    const std::string& name = writing.parameter->name;
    const double number = writing.value.number;
    if (name == "activeRecipe") {
      const Verdict verdict = mCurve.verdictOnRecipe(recipeOf(number));
      if (verdict != Verdict::Accepted) return {verdict, {name}};
    } else if (name.starts_with("recipe") && name.ends_with("PulpType")) {
      if (!mCurve.blade().allows(mTable.key(name))) return {Verdict::PulpTypeNotAllowed, {name}};
    } else if (name == "sampleStart") {
      if (number != 0 && number != 1) return {Verdict::InvalidSelection, {name}};
    } else if (name == "executeAction") {
      const Verdict verdict = verdictOnAction(actionOf(number));
      if (verdict != Verdict::Accepted) return {verdict, {name}};
    } else if (name == "temperatureCalibrationCorrection") {
      if (std::abs(number) > kLargestTemperatureCorrection) return {Verdict::TemperatureCorrectionTooLarge, {name}};
    } else if (writing.parameter->unit == "mA" && (name == "loopTestValue" || name == "mACalibrationFixedCurrent")) {
      if (number != 0 && number < CurrentOutput::kLowestTest) return {Verdict::TooSmall, {name}};
    } else if (name == "lowerRangeValue" || name == "upperRangeValue") {
      range.push_back(name);
    }
    isSpecialGrade = isSpecialGrade || name.starts_with("consistencyValue");
  }
  if (!range.empty() && isTooNarrow("lowerRangeValue", "upperRangeValue", mTable.number("minimumSpan", 0))) return {Verdict::SpanTooSmall, range};
  if (isSpecialGrade && mCurve.verdictOnSpecialGrade() != Verdict::Accepted) {
    std::vector<std::string> points;
    for (const Writing& writing : writings) points.push_back(writing.parameter->name);
    return {Verdict::SpecialGradePointInvalid, std::move(points)};
  }
  return command == "laboratoryResults" ? mSampling.calibrate() : Judgement{};
}

void BladeTransmitter::refused(std::string_view command, const std::vector<Writing>& writings, const Judgement& judgement) {
  // Whoever stops a sample that is not running takes what he reads then for that sample.
  if (judgement.verdict == Verdict::SampleNotRunning)
    for (const Writing& writing : writings) mTable.set(sampleName(actionOf(writing.value.number) == kStopSample1 ? 1 : 2, "Quality"), 1);
  if (command == "laboratoryResults") mLog.count(EventLog::Kind::Warning, "eventCalibrationSuspicious");
}

void BladeTransmitter::judged(std::string_view command, const Judgement& judgement) {
  if (mActionStatus) mActionStatus->record(command, judgement);
}

void BladeTransmitter::takeEffect(const Writing& writing) {
  const std::string& name = writing.parameter->name;
  const double number = writing.value.number;
  const auto record = [&](std::string_view event) { mLog.count(EventLog::Kind::Info, event); };
  if (name == "activeRecipe") {
    record("eventActiveRecipeChanged");
  } else if (name == "sampleStart") {
    mSampling.start(static_cast<int>(number) + 1, moment());
  } else if (name == "executeAction") {
    execute(actionOf(number));
  } else if (name.starts_with("flushing")) {
    mFlushing.begin(now());
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

void BladeTransmitter::execute(int action) {
  const auto reset = [&](EventLog::Kind kind) {
    mLog.clear(kind);
    mLog.count(EventLog::Kind::Info, "eventLogReset");
  };
  switch (action) {
    case kStartSample1: return mSampling.start(1, moment());
    case kStartSample2: return mSampling.start(2, moment());
    case kStopSample1: return mSampling.stop(1, moment());
    case kStopSample2: return mSampling.stop(2, moment());
    case kResetErrorEventLog: return reset(EventLog::Kind::Error);
    case kResetWarningEventLog: return reset(EventLog::Kind::Warning);
    case kResetInfoEventLog: return reset(EventLog::Kind::Info);
    default: return;  // a recipe is always ready to be read
  }
}

}  // namespace ostrand::simulator
