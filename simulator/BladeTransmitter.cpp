#include "simulator/BladeTransmitter.h"

#include <algorithm>
#include <cmath>

#include "simulator/Damping.h"
#include "simulator/LaboratoryCalibration.h"

namespace ostrand {

namespace {

constexpr double kLargestTemperatureCorrection = 10.0;  // degC
constexpr double kLargeDeviation = 0.05;                // of the average
// What titanium dioxide takes from the force, in parts of the consistency.
constexpr double kTitaniumDioxide = 0.03;
// The memory for one sample, an hour; what comes later is not averaged any more.
constexpr std::int64_t kLongestSample = 7200;

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

constexpr const char* kOfSample[] = {"ConsistencyAverage", "Deviation", "ShearForceAverage"};

// Whatever stands in the memory, it is a number of a recipe, if only of one that does not exist.
int recipeOf(double number) { return static_cast<int>(std::clamp(number, 0.0, 99.0)); }
int actionOf(double number) { return static_cast<int>(std::clamp(number, 0.0, 999.0)); }
std::string recipeName(int recipe, const char* what) { return "recipe" + std::to_string(recipe) + what; }
std::string sampleName(int sample, const char* what) { return "sample" + std::to_string(sample) + what; }

std::string pointName(const char* what, int point) {
  return std::string(what) + static_cast<char>('0' + point / 10) + static_cast<char>('0' + point % 10);
}

}  // namespace

BladeTransmitter::BladeTransmitter(const Desktop& desktop, const Document& dataSet, const Settings& settings, unsigned seed)
    : BasicTransmitter(desktop, dataSet, settings.line, seed, {{"sensor", "statusSensorFailure", "eventSensorFailure", true}}),
      mBuiltInBlade(settings.blade),
      mProcess(mFlow, blade(), seed),
      mBus(settings.bus),
      mHeldOutput(mTable.number("outputValue", 0)) {
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
  // The samples are not kept without power; and no sample is no good sample.
  mRunningSample = 0;
  for (const int sample : {1, 2}) {
    mSamples[static_cast<std::size_t>(sample - 1)].reset();
    for (const char* what : kOfSample) mTable.set(sampleName(sample, what), 0);
    mTable.set(sampleName(sample, "Quality"), 1);
  }
  if (mActionStatus) mActionStatus->clear();
  mLoopTest = mFixedCurrent = 0;
  mFlushingFrom = now();
  BasicTransmitter::powerUp();
}

// --- Measurement ---

int BladeTransmitter::activeRecipe() const { return recipeOf(mTable.number("activeRecipe", 1)); }

double BladeTransmitter::specialGradeOffset(double consistency) const {
  double beforeValue = 0;
  double before = 0;
  for (int point = 0; point < 16; ++point) {
    const double value = mTable.number(pointName("consistencyValue", point));
    const double offset = mTable.number(pointName("consistencyOffset", point), 0);
    if (std::isnan(value)) break;
    if (consistency <= value) {
      if (point == 0 || value <= beforeValue) return offset;
      return before + (offset - before) * (consistency - beforeValue) / (value - beforeValue);
    }
    beforeValue = value;
    before = offset;
  }
  return before;
}

double BladeTransmitter::linearInput(int recipe, double shearForce) const {
  const std::string_view pulp = mTable.key(recipeName(recipe, "PulpType"));
  double consistency = blade().consistency(shearForce, pulpFactor(pulp));
  if (pulp == "pulpTypeSpecialGrade") consistency += specialGradeOffset(consistency);
  if (mTable.key("titaniumDioxideCompensation") == "on") consistency /= 1 - kTitaniumDioxide;
  // Filler leaves no force on the blade, but counts in the consistency.
  return consistency / (1 - std::clamp(mTable.number(recipeName(recipe, "Filler"), 0), 0.0, 90.0) / 100);
}

double BladeTransmitter::reading(int recipe, double shearForce) const {
  const double slope = mTable.number(recipeName(recipe, "LinearizationSlopeP1"), 1);
  return slope * linearInput(recipe, shearForce) + mTable.number(recipeName(recipe, "LinearizationOffsetP2"), 0);
}

std::int64_t BladeTransmitter::undisturbed(std::int64_t tick) const {
  if (mTable.key("flushingMode") != "flushingModeTimed") return tick;
  const std::int64_t interval = Interruption::ticks(60 * mTable.number("flushingInterval", 0));
  const std::int64_t length = Interruption::ticks(mTable.number("flushingTime", 0));
  return Interruption{mFlushingFrom, interval, length}.undisturbed(tick);
}

double BladeTransmitter::dampedForce(std::int64_t tick) const {
  return damped(mTable.number("damping", 0), [&](std::int64_t back) { return mProcess.shearForce(tick - back); });
}

void BladeTransmitter::look() {
  showMeasurement();
  const CurrentOutput current = output(mTable.number("consistency"));
  mTable.set("outputPercent", current.percent);
  mTable.set("outputCurrent", current.current);
  showStatus(current);
  showFunctionBlock();
}

void BladeTransmitter::showMeasurement() {
  const std::int64_t tick = undisturbed(now());
  const bool blind = failed("sensor");
  const double force = mProcess.shearForce(tick);
  double consistency = blind ? kNothing : reading(activeRecipe(), dampedForce(tick));
  mTable.set("shearForce", blind ? kNothing : force);
  mTable.set("consistencyUnfiltered", blind ? kNothing : reading(activeRecipe(), force));
  if (isFailSafe()) {
    const std::string_view type = mTable.key("failSafeType");
    if (type == "failSafeTypeDefaultValue") consistency = mTable.number("failSafeDefaultValue", 0);
    if (type == "failSafeTypeLastValidValue") consistency = mLastConsistency;
  }
  if (isSimulated()) consistency = mTable.number("simulationValue", 0);
  mTable.set("consistency", consistency);
  showTemperatures(tick, mProcessCorrection, mElectronicsCorrection);
}

CurrentOutput BladeTransmitter::output(double consistency) const {
  CurrentOutput out = CurrentOutput::of(consistency, mTable.number("lowerRangeValue", 0), mTable.number("upperRangeValue", 100));
  const bool isUnknown = std::isnan(out.percent);
  const bool hasNoChoice = !mTable.find("failSafeType");
  const bool isAlarm = isFailSafe() && (hasNoChoice || mTable.key("failSafeType") == "failSafeTypeAlarmCurrent");
  if (isAlarm || isUnknown) out.alarm(mTable.key("failSafeAlarmCurrent"), mLastCurrent);
  // On an address of its own in a multi-drop line the device draws the smallest current.
  const double fixed = mLoopTest != 0 ? mLoopTest : mFixedCurrent != 0 ? mFixedCurrent : mTable.number("hartAddress", 0) != 0 ? 4.0 : 0;
  if (fixed != 0) out.fix(fixed);
  return out;
}

int BladeTransmitter::sideOfSensorLimits(double consistency) const {
  return consistency < mTable.number("lowerSensorLimit") ? -1 : consistency > mTable.number("upperSensorLimit") ? 1 : 0;
}

// What goes out on the bus in turn with other values, and what it is worth.
void BladeTransmitter::showFunctionBlock() {
  if (!mTable.find("outputValue")) return;
  const bool cannot = failed("electronics") || failed("memory");
  mTable.setKey("actualMode", cannot ? "modeOutOfService" : mTable.key("targetMode"));
  const bool isOutOfService = mTable.key("actualMode") == "modeOutOfService";
  const bool isTested = mLoopTest != 0 && !isOutOfService;
  const double consistency = mTable.number("consistency");
  const double value = isTested ? mLoopTest : isHeld() ? mHeldOutput : consistency;
  mTable.set("outputValue", value);

  const int side = sideOfSensorLimits(consistency);
  std::string_view quality = isFailSafe() || side != 0 || isOutOfLimits("consistency") ? "qualityUncertain" : "qualityGood";
  if (isSimulated()) quality = mTable.key("simulationQuality");
  if (isOutOfService || std::isnan(value)) quality = "qualityBad";
  mTable.setKey("outputQuality", quality);

  std::string_view limit = side < 0 ? "limitedLow" : side > 0 ? "limitedHigh" : "limitedNone";
  if (isSimulated()) limit = mTable.key("simulationLimit");
  if (isHeld() || isTested) limit = "limitedConstant";
  mTable.setKey("outputLimit", limit);
}

// --- Status ---

void BladeTransmitter::showStatus(const CurrentOutput& out) {
  const bool isOtherOut = watch({{"shearForce", "statusShearForceOutOfLimits", "eventShearForceHigh"}});
  raise("statusLoopTestActive", mLoopTest != 0);
  raise("statusSamplingActive", mRunningSample != 0);
  raise("statusSimulationActive", isSimulated());
  raise("statusFlushingActive", undisturbed(now()) != now());

  const double consistency = mTable.number("consistency");
  // Without a current output there is no other range than that of the sensor.
  const double highest = mTable.number("upperRangeValue", mTable.number("upperSensorLimit"));
  const double lowest = mTable.number("lowerRangeValue", mTable.number("lowerSensorLimit"));
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyAboveRange", consistency > highest);
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyBelowRange", consistency < lowest);
  mLog.follow(EventLog::Kind::Warning, "eventOutputSaturated", out.isSaturated && mTable.find("outputCurrent"));

  showBusStatus({sideOfSensorLimits(consistency) != 0, isOtherOut, out.isSaturated, out.isFixed});
}

void BladeTransmitter::hold() {
  mLastConsistency = mTable.number("consistency", 0);
  mLastCurrent = mTable.number("outputCurrent", 4);
  holdOutput();
}

// A test is not what is held when it is over.
void BladeTransmitter::holdOutput() {
  if (!isHeld()) mHeldOutput = mTable.number("consistency", mHeldOutput);
}

void BladeTransmitter::beginRead(const std::vector<const Parameter*>& asked) {
  if (mBus != Bus::Hart || mRunningSample == 0) return;
  // Who wants the sample asks for its average and deviation, and for nothing that is not the sample's. Who reads them among
  // other values only looks.
  bool hasAverage = false;
  bool hasDeviation = false;
  for (const Parameter* parameter : asked) {
    if (!parameter->name.starts_with(sampleName(mRunningSample, ""))) return;
    hasAverage = hasAverage || parameter->name.ends_with("ConsistencyAverage");
    hasDeviation = hasDeviation || parameter->name.ends_with("Deviation");
  }
  if (hasAverage && hasDeviation) stopSample(mRunningSample);
}

std::string BladeTransmitter::read(const Parameter& parameter) {
  // Of a sample that is running, the average so far.
  if (mRunningSample != 0 && parameter.name.starts_with(sampleName(mRunningSample, ""))) showSample(average());
  return BasicTransmitter::read(parameter);
}

// --- Samples and calibration ---

void BladeTransmitter::startSample(int number) {
  if (mRunningSample != 0) stopSample(mRunningSample);
  mRunningSample = number;
  mSampleStart = now();
  mSamples[static_cast<std::size_t>(number - 1)].reset();
  for (const char* what : kOfSample) mTable.set(sampleName(number, what), kNothing);
  mTable.set(sampleName(number, "Quality"), 1);
}

BladeTransmitter::Average BladeTransmitter::average() const {
  Average result{};
  const std::int64_t end = std::min(now(), mSampleStart + kLongestSample - 1);
  double squares = 0;
  double count = 0;
  for (std::int64_t tick = mSampleStart; tick <= end && !failed("sensor"); ++tick) {
    if (undisturbed(tick) != tick) continue;
    const double force = mProcess.shearForce(tick);
    const double measured = reading(activeRecipe(), force);
    count += 1;
    result.shearForce += force;
    result.laboratory += mFlow.consistency(tick);
    const double difference = measured - result.consistency;
    result.consistency += difference / count;
    squares += difference * (measured - result.consistency);
  }
  result.isEmpty = count == 0;
  result.shearForce /= count;
  result.laboratory /= count;
  result.deviation = std::sqrt(squares / count);
  return result;
}

void BladeTransmitter::showSample(const Average& average) {
  mTable.set(sampleName(mRunningSample, "ConsistencyAverage"), average.isEmpty ? kNothing : average.consistency);
  mTable.set(sampleName(mRunningSample, "Deviation"), average.isEmpty ? kNothing : average.deviation);
  mTable.set(sampleName(mRunningSample, "ShearForceAverage"), average.isEmpty ? kNothing : average.shearForce);
}

void BladeTransmitter::stopSample(int number) {
  if (mRunningSample != number) return;
  const Average taken = average();
  showSample(taken);
  mRunningSample = 0;
  if (taken.isEmpty) return;
  mSamples[static_cast<std::size_t>(number - 1)] = Sample{taken.shearForce, taken.laboratory};
  const bool isUneven = taken.deviation > kLargeDeviation * taken.consistency;
  mTable.set(sampleName(number, "Quality"), isUneven);
  if (isUneven) mLog.count(EventLog::Kind::Warning, "eventSampleDeviationLarge");
}

std::optional<double> BladeTransmitter::laboratoryValue(int sample) const {
  if (sample < 1 || sample > 2 || !mSamples[static_cast<std::size_t>(sample - 1)]) return std::nullopt;
  return mSamples[static_cast<std::size_t>(sample - 1)]->laboratory;
}

Judgement BladeTransmitter::calibrate() {
  const int recipe = recipeOf(mTable.number("laboratoryRecipe", 1));
  const std::string_view type = mTable.key("calibrationType");
  if (!blade().allows(mTable.key(recipeName(recipe, "PulpType")))) return {Verdict::PulpTypeNotAllowed, {"laboratoryRecipe"}};

  mTable.set(recipeName(recipe, "Filler"), mTable.number("sampleFiller", 0));
  std::vector<CalibrationPoint> points;
  std::vector<std::string> values;
  for (const int sample : {1, 2}) {
    if (type == (sample == 1 ? "useSample2Only" : "useSample1Only")) continue;
    values.push_back("laboratoryValue" + std::to_string(sample));
    const std::optional<Sample>& taken = mSamples[static_cast<std::size_t>(sample - 1)];
    if (!taken) return {Verdict::SampleNotTaken, {values.back()}};
    points.push_back({linearInput(recipe, taken->shearForce), mTable.number(values.back(), 0)});
  }
  const Calibration result = calibrated(points, mTable.number(recipeName(recipe, "LinearizationSlopeP1"), 1));
  if (result.verdict != Verdict::Accepted) return {result.verdict, values};
  mTable.set(recipeName(recipe, "LinearizationSlopeP1"), result.slope);
  mTable.set(recipeName(recipe, "LinearizationOffsetP2"), result.offset);
  mLog.count(EventLog::Kind::Info, "eventRecipeCalibrated");
  return {};
}

// --- Writes ---

Verdict BladeTransmitter::verdictOnRecipe(int recipe) const {
  const std::string_view pulp = mTable.key(recipeName(recipe, "PulpType"));
  if (!blade().allows(pulp)) return Verdict::PulpTypeNotAllowed;
  const double slope = mTable.number(recipeName(recipe, "LinearizationSlopeP1"));
  if (std::isnan(slope)) return Verdict::RecipeNotCalibrated;
  // A special grade is known by its points or by a calibration; as it leaves the factory it has neither.
  if (pulp != "pulpTypeSpecialGrade" || slope != 1 || mTable.number(recipeName(recipe, "LinearizationOffsetP2"), 0) != 0) return Verdict::Accepted;
  for (int point = 0; point < 16; ++point)
    if (mTable.number(pointName("consistencyOffset", point), 0) != 0) return Verdict::Accepted;
  return Verdict::RecipeNotCalibrated;
}

Verdict BladeTransmitter::verdictOnSpecialGrade() const {
  const auto at = [&](int point) { return mTable.number(pointName("consistencyValue", point), 0); };
  for (int point = 1; point < 16; ++point)
    if (at(point) <= at(point - 1)) return Verdict::SpecialGradePointInvalid;
  return Verdict::Accepted;
}

Verdict BladeTransmitter::verdictOnAction(int action) const {
  switch (action) {
    // The other sample is not ended without being asked for; this one begins anew.
    case kStartSample1: return mRunningSample == 2 ? Verdict::SampleRunning : Verdict::Accepted;
    case kStartSample2: return mRunningSample == 1 ? Verdict::SampleRunning : Verdict::Accepted;
    case kStopSample1: return mRunningSample == 1 ? Verdict::Accepted : Verdict::SampleNotRunning;
    case kStopSample2: return mRunningSample == 2 ? Verdict::Accepted : Verdict::SampleNotRunning;
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
      const Verdict verdict = verdictOnRecipe(recipeOf(number));
      if (verdict != Verdict::Accepted) return {verdict, {name}};
    } else if (name.starts_with("recipe") && name.ends_with("PulpType")) {
      if (!blade().allows(mTable.key(name))) return {Verdict::PulpTypeNotAllowed, {name}};
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
  if (isSpecialGrade && verdictOnSpecialGrade() != Verdict::Accepted) {
    std::vector<std::string> points;
    for (const Writing& writing : writings) points.push_back(writing.parameter->name);
    return {Verdict::SpecialGradePointInvalid, std::move(points)};
  }
  return command == "laboratoryResults" ? calibrate() : Judgement{};
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
    startSample(static_cast<int>(number) + 1);
  } else if (name == "executeAction") {
    execute(actionOf(number));
  } else if (name.starts_with("flushing")) {
    mFlushingFrom = now();
  } else if (name == "targetMode") {
    holdOutput();
  } else if (name == "loopTestValue") {
    if (mLoopTest == 0 && number != 0) record("eventLoopTestRun");
    mLoopTest = number;
  } else if (name == "mACalibrationFixedCurrent") {
    mFixedCurrent = number;
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
    case kStartSample1: return startSample(1);
    case kStartSample2: return startSample(2);
    case kStopSample1: return stopSample(1);
    case kStopSample2: return stopSample(2);
    case kResetErrorEventLog: return reset(EventLog::Kind::Error);
    case kResetWarningEventLog: return reset(EventLog::Kind::Warning);
    case kResetInfoEventLog: return reset(EventLog::Kind::Info);
    default: return;  // a recipe is always ready to be read
  }
}

}  // namespace ostrand
