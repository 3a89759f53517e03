#include "simulator/BladeTransmitter.h"

#include <algorithm>

#include "simulator/RecipeNames.h"
#include "simulator/Damping.h"

namespace ostrand::simulator {

namespace {

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
    : ConsistencyTransmitter(desktop, dataSet, settings.line, seed, {{"sensor", "statusSensorFailure", "eventSensorFailure", true}},
                             {"shearForce", "statusShearForceOutOfLimits", "eventShearForceHigh"}),
      mBus(settings.bus),
      mCurve(mTable, settings.blade),
      mProcess(mFlow, mCurve.blade(), seed),
      mFlushing(mTable),
      mSampling(mTable, mLog, mCurve, mFlushing, mProcess, mFlow) {
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
  mFlushing.begin(now());
  ConsistencyTransmitter::powerUp();
}

// --- Measurement ---

double BladeTransmitter::dampedForce(std::int64_t tick) const {
  return damped(mTable.number("damping", 0), [&](std::int64_t back) { return mProcess.shearForce(tick - back); });
}

double BladeTransmitter::measure() {
  const std::int64_t tick = measuringTick();
  const bool blind = failed("sensor");
  const double force = mProcess.shearForce(tick);
  mTable.set("shearForce", blind ? kNothing : force);
  mTable.set("consistencyUnfiltered", blind ? kNothing : mCurve.reading(mCurve.activeRecipe(), force));
  return blind ? kNothing : mCurve.reading(mCurve.activeRecipe(), dampedForce(tick));
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
  return ConsistencyTransmitter::read(parameter);
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
    } else if (const Verdict verdict = verdictOn(writing); verdict != Verdict::Accepted) {
      return {verdict, {name}};
    }
    isSpecialGrade = isSpecialGrade || name.starts_with("consistencyValue");
  }
  if (Judgement onRange = verdictOnRange(writings); onRange.isRefusal()) return onRange;
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
  if (name == "sampleStart")
    mSampling.start(static_cast<int>(writing.value.number) + 1, moment());
  else if (name == "executeAction")
    execute(actionOf(writing.value.number));
  else if (name.starts_with("flushing"))
    mFlushing.begin(now());
  else
    ConsistencyTransmitter::takeEffect(writing);
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
