#include "simulator/BladeTransmitter.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "simulator/LaboratoryCalibration.h"

namespace ostrand {

namespace {

constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

// Percent of the range at which the output is held, and the current that belongs to it: 3.6 and 22 mA.
constexpr double kLowestPercent = -2.5;
constexpr double kHighestPercent = 112.5;
constexpr double currentOf(double percent) { return 4.0 + 0.16 * percent; }
// The output cannot be driven lower by a test.
constexpr double kLowestTestCurrent = 3.5;

constexpr double kLargestTemperatureCorrection = 10.0;  // degC
constexpr double kLargeDeviation = 0.05;                // of the average
// What titanium dioxide takes from the force, in parts of the consistency.
constexpr double kTitaniumDioxide = 0.03;
// The memory for one sample, an hour; what comes later is not averaged any more.
constexpr std::int64_t kLongestSample = 7200;

struct Failure {
  std::string_view name, status, event;
  bool stopsMeasurement;
};

constexpr Failure kFailures[] = {
    {"sensor", "statusSensorFailure", "eventSensorFailure", true},
    {"temperatureSensor", "statusTemperatureSensorFailure", "eventTemperatureSensorFailure", false},
    {"electronics", "statusElectronicsFailure", "eventElectronicsFailure", true},
    {"memory", "statusMemoryFailure", "eventMemoryFailure", true},
    {"currentOutput", "statusCurrentOutputFailure", "eventCurrentOutputFailure", false},
    {"supplyVoltage", "statusSupplyVoltageFailure", "eventSupplyVoltageLow", false},
};

struct Limit {
  std::string_view measured, status, event;
};

constexpr Limit kLimits[] = {
    {"shearForce", "statusShearForceOutOfLimits", "eventShearForceHigh"},
    {"processTemperature", "statusProcessTemperatureOutOfLimits", "eventProcessTemperatureHigh"},
    {"electronicsTemperature", "statusElectronicsTemperatureOutOfLimits", "eventElectronicsTemperatureHigh"},
};

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
std::int64_t ticksOf(double seconds) { return static_cast<std::int64_t>(std::clamp(seconds, 0.0, 1e6) / BladeProcess::kSecondsPerTick); }
std::string recipeName(int recipe, const char* what) { return "recipe" + std::to_string(recipe) + what; }
std::string sampleName(int sample, const char* what) { return "sample" + std::to_string(sample) + what; }

std::string pointName(const char* what, int point) {
  return std::string(what) + static_cast<char>('0' + point / 10) + static_cast<char>('0' + point % 10);
}

// Writes that are no configuration: they act, or have an event of their own.
bool isAction(std::string_view name) {
  return name == "activeRecipe" || name == "sampleStart" || name == "executeAction" || name == "loopTestValue" || name.starts_with("mACalibration") ||
         name.starts_with("laboratory") || name == "calibrationType" || name == "sampleFiller" || name.starts_with("temperatureCalibration");
}

}  // namespace

BladeTransmitter::BladeTransmitter(const Desktop& desktop, const Document& dataSet, const Settings& settings, unsigned seed)
    : mDesktop(desktop),
      mTable(dataSet),
      mLog(mTable),
      mBuiltInBlade(settings.blade),
      mProcess(settings.line, blade(), desktop.now(), seed),
      mBus(settings.bus) {
  // The samples are not kept without power.
  for (const int sample : {1, 2})
    for (const char* what : kOfSample) mTable.set(sampleName(sample, what), 0);
  if (mBus == Bus::Profibus) {
    mActionStatus.emplace(mTable);
    for (const int sample : {1, 2}) {
      Parameter quality;
      quality.name = sampleName(sample, "Quality");
      quality.type = Parameter::Type::Integer;
      quality.unit = "noUnit";
      quality.value.number = 1;  // no sample is no good sample
      mTable.add(std::move(quality));
    }
  }
  mLog.count(EventLog::Kind::Info, "eventPowerUp");
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
  if (mTable.key("flushingMode") != "flushingModeTimed" || tick < mFlushingFrom) return tick;
  const std::int64_t between = ticksOf(60 * mTable.number("flushingInterval", 0));
  const std::int64_t cycle = between + ticksOf(mTable.number("flushingTime", 0));
  const std::int64_t within = cycle > 0 ? (tick - mFlushingFrom) % cycle : 0;
  return within < between ? tick : tick - (within - between) - 1;
}

double BladeTransmitter::dampedForce(std::int64_t tick) const {
  constexpr double kStep = BladeProcess::kSecondsPerTick;
  const double damping = std::clamp(mTable.number("damping", 0), 0.0, 99.0);
  // A first-order filter, summed up anew over as much of the past as still counts: so it does not matter when one looked.
  const double newest = kStep / (damping + kStep);
  const auto window = static_cast<std::int64_t>(8 * (damping / kStep + 1));
  double sum = 0;
  double weights = 0;
  double weight = newest;
  for (std::int64_t back = 0; back < window && weight > 0; ++back) {
    sum += weight * mProcess.shearForce(tick - back);
    weights += weight;
    weight *= 1 - newest;
  }
  return sum / weights;
}

bool BladeTransmitter::isFailSafe() const {
  if (mTable.key("failSafeType") == "failSafeTypeIgnore") return false;
  return std::any_of(std::begin(kFailures), std::end(kFailures), [&](const Failure& f) { return f.stopsMeasurement && failed(f.name); });
}

void BladeTransmitter::look() {
  showMeasurement();
  const Output now = output(mTable.number("consistency"));
  mTable.set("outputPercent", now.percent);
  mTable.set("outputCurrent", now.current);
  showStatus(now);
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
  if (mTable.key("simulation") == "on") consistency = mTable.number("simulationValue", 0);
  mTable.set("consistency", consistency);
  mTable.set("processTemperature", failed("temperatureSensor") ? kNothing : mProcess.processTemperature(tick) + mProcessCorrection);
  mTable.set("electronicsTemperature", mProcess.electronicsTemperature(tick) + mElectronicsCorrection);
}

BladeTransmitter::Output BladeTransmitter::output(double consistency) const {
  const double lower = mTable.number("lowerRangeValue", 0);
  const double upper = mTable.number("upperRangeValue", 100);
  const double asked = upper == lower ? 0 : 100 * (consistency - lower) / (upper - lower);
  const double percent = std::isnan(asked) ? kNothing : std::clamp(asked, kLowestPercent, kHighestPercent);
  Output out{percent, currentOf(percent), false, percent != asked && !std::isnan(asked)};
  const bool hasNoChoice = !mTable.find("failSafeType");
  const bool alarm = isFailSafe() && (std::isnan(percent) || hasNoChoice || mTable.key("failSafeType") == "failSafeTypeAlarmCurrent");
  if (alarm || std::isnan(percent)) {
    const std::string_view type = mTable.key("failSafeAlarmCurrent");
    out.current = type == "alarmCurrentLow" ? currentOf(kLowestPercent) : type == "alarmCurrentHold" ? mLastCurrent : currentOf(kHighestPercent);
  }
  // On an address of its own in a multi-drop line the device draws the smallest current.
  const double fixed = mLoopTest != 0 ? mLoopTest : mFixedCurrent != 0 ? mFixedCurrent : mTable.number("hartAddress", 0) != 0 ? 4.0 : 0;
  if (fixed != 0) {
    out.current = fixed;
    out.isFixed = true;
    out.isSaturated = false;
  }
  return out;
}

// What goes out on the bus in turn with other values, and what it is worth.
void BladeTransmitter::showFunctionBlock() {
  if (!mTable.find("outputValue")) return;
  const bool isOut = failed("electronics") || failed("memory");
  mTable.setKey("actualMode", isOut ? "modeOutOfService" : mTable.key("targetMode"));
  const std::string_view mode = mTable.key("actualMode");
  const double consistency = mTable.number("consistency");
  const bool byHand = mode == "modeManual";
  const double value = mode == "modeOutOfService" ? kNothing : mLoopTest != 0 ? mLoopTest : byHand ? mHeldOutput : consistency;
  mTable.set("outputValue", value);
  std::string_view quality = "qualityGood";
  if (isFailSafe() || isOutOfLimits("consistency")) quality = "qualityUncertain";
  if (mTable.key("simulation") == "on") quality = mTable.key("simulationQuality");
  if (std::isnan(value)) quality = "qualityBad";
  mTable.setKey("outputQuality", quality);
}

// --- Status ---

bool BladeTransmitter::isOutOfLimits(std::string_view name) const {
  const Parameter* const p = mTable.find(name);
  if (!p || std::isnan(p->value.number)) return false;
  return (p->lowest && p->value.number < *p->lowest) || (p->highest && p->value.number > *p->highest);
}

void BladeTransmitter::raise(std::string_view name, bool condition) {
  mTable.set(name, condition ? 1 : 0);
  mIsMoreStatus = mIsMoreStatus || condition;
}

void BladeTransmitter::showStatus(const Output& out) {
  // First the bits of the transmitter: those of the bus sum them up.
  mIsMoreStatus = false;
  for (const Failure& failure : kFailures) {
    raise(failure.status, failed(failure.name));
    mLog.follow(EventLog::Kind::Error, failure.event, failed(failure.name));
  }
  bool isOtherOut = false;
  for (const Limit& limit : kLimits) {
    const bool isOut = isOutOfLimits(limit.measured);
    isOtherOut = isOtherOut || isOut;
    raise(limit.status, isOut);
    mLog.follow(EventLog::Kind::Warning, limit.event, isOut);
  }
  raise("statusLoopTestActive", mLoopTest != 0);
  raise("statusSamplingActive", mRunningSample != 0);
  raise("statusFailSafeActive", isFailSafe());
  raise("statusWriteProtectionActive", mIsWriteProtected);
  raise("statusSimulationActive", mTable.key("simulation") == "on");
  raise("statusFlushingActive", undisturbed(now()) != now());

  const double consistency = mTable.number("consistency");
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyAboveRange", consistency > mTable.number("upperRangeValue"));
  mLog.follow(EventLog::Kind::Warning, "eventConsistencyBelowRange", consistency < mTable.number("lowerRangeValue"));
  mLog.follow(EventLog::Kind::Warning, "eventOutputSaturated", out.isSaturated && mTable.find("outputCurrent"));

  mTable.set("statusHARTPVOutOfLimits", consistency < mTable.number("lowerSensorLimit") || consistency > mTable.number("upperSensorLimit"));
  mTable.set("statusHARTNonPVOutOfLimits", isOtherOut);
  mTable.set("statusHARTLoopCurrentOutOfLimits", out.isSaturated);
  mTable.set("statusHARTFixedCurrentActive", out.isFixed);
  mTable.set("statusHARTMoreStatusAvailable", mIsMoreStatus);
  mTable.set("statusHARTColdStart", mIsColdStart);
  mTable.set("statusHARTConfigurationChanged", mIsConfigurationChanged);
  mTable.set("statusHARTDeviceFailure", !mFailures.empty());
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
  // These two last until they have been seen.
  if (parameter.name == "statusHARTColdStart") mIsColdStart = false;
  if (parameter.name == "statusHARTConfigurationChanged") mIsConfigurationChanged = false;
  return parameter.text(parameter.value);
}

bool BladeTransmitter::setFault(std::string_view name, std::string_view argument) {
  if (name == "none") {
    mFailures.clear();
    mIsWriteProtected = false;
    mProcess.setUnsteadiness(1);
    return true;
  }
  if (name == "failure") {
    const bool known = std::any_of(std::begin(kFailures), std::end(kFailures), [&](const Failure& f) { return f.name == argument; });
    if (!known) throw RuntimeError(RuntimeError::BadArgument, "no such failure: \"" + std::string(argument) + "\"");
    if (mFailures.empty()) {
      look();
      mLastConsistency = mTable.number("consistency", 0);
      mLastCurrent = mTable.number("outputCurrent", 4);
    }
    mFailures.emplace(argument);
    return true;
  }
  if (name == "unsteady") {
    const std::optional<double> factor = parseNumber(argument, '.');
    if (!factor || *factor < 0 || *factor > 1000) throw RuntimeError(RuntimeError::BadArgument, "not a factor: \"" + std::string(argument) + "\"");
    mProcess.setUnsteadiness(*factor);
    return true;
  }
  if (name == "writeProtected") return mIsWriteProtected = true;
  return false;
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
    result.laboratory += mProcess.consistency(tick);
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
      if (number != 0 && number < kLowestTestCurrent) return {Verdict::TooSmall, {name}};
    } else if (name == "lowerRangeValue" || name == "upperRangeValue") {
      range.push_back(name);
    }
    isSpecialGrade = isSpecialGrade || name.starts_with("consistencyValue");
  }
  if (!range.empty()) {
    const double span = mTable.number("upperRangeValue", 0) - mTable.number("lowerRangeValue", 0);
    if (span < mTable.number("minimumSpan", 0)) return {Verdict::SpanTooSmall, range};
  }
  if (isSpecialGrade && verdictOnSpecialGrade() != Verdict::Accepted) {
    std::vector<std::string> points;
    for (const Writing& writing : writings) points.push_back(writing.parameter->name);
    return {Verdict::SpecialGradePointInvalid, std::move(points)};
  }
  return command == "laboratoryResults" ? calibrate() : Judgement{};
}

Judgement BladeTransmitter::write(std::string_view command, const std::vector<Writing>& writings) {
  if (mIsWriteProtected) {
    std::vector<std::string> all;
    for (const Writing& writing : writings) all.push_back(writing.parameter->name);
    return {Verdict::WriteProtected, std::move(all)};
  }
  // The verdicts look at the memory as it would be: so it is written first, and put back after a refusal.
  const ParameterTable::Values before = mTable.values();
  bool isNothingNew = command != "laboratoryResults";
  bool isConfiguration = false;
  for (const Writing& writing : writings) {
    const std::string& name = writing.parameter->name;
    Value& present = mTable.find(name)->value;
    const bool isText = writing.parameter->type == Parameter::Type::Text;
    const bool isSame = isText ? present.text == writing.value.text : present.number == writing.value.number;
    isNothingNew = isNothingNew && isSame && name != "executeAction";
    isConfiguration = isConfiguration || !isAction(name);
    present = writing.value;
  }
  Judgement judgement = judge(command, writings);
  if (judgement.isRefusal()) {
    mTable.restore(before);
    // Whoever stops a sample that is not running takes what he reads then for that sample.
    if (judgement.verdict == Verdict::SampleNotRunning)
      for (const Writing& writing : writings) mTable.set(sampleName(actionOf(writing.value.number) == kStopSample1 ? 1 : 2, "Quality"), 1);
    if (command == "laboratoryResults") mLog.count(EventLog::Kind::Warning, "eventCalibrationSuspicious");
    return judgement;
  }
  for (const Writing& writing : writings) takeEffect(writing);
  judgement.isNothingNew = isNothingNew;
  if (isConfiguration) {
    mIsConfigurationChanged = true;
    mLog.count(EventLog::Kind::Info, "eventConfigurationChanged");
  }
  return judgement;
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
    mHeldOutput = mTable.number("outputValue");
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
