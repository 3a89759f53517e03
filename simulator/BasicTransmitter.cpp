#include "simulator/BasicTransmitter.h"

#include <algorithm>
#include <cmath>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand::simulator {

namespace {

[[noreturn]] void fail(const std::string& why) { throw RuntimeError(RuntimeError::BadArgument, why); }

double numberWithin(std::string_view fault, std::string_view argument, double lowest, double highest) {
  const std::optional<double> number = parseNumber(argument, '.');
  if (!number || !(*number >= lowest && *number <= highest))
    fail("the fault \"" + std::string(fault) + "\" needs a number from " + plainText(lowest, '.') + " to " + plainText(highest, '.') + ", not \"" +
         std::string(argument) + "\"");
  return *number;
}

// Writes that are no configuration: they act, or have an event of their own.
bool isAction(std::string_view name) {
  return name == "activeRecipe" || name == "activeGrade" || name == "sampleStart" || name == "executeAction" || name == "loopTestValue" ||
         name.ends_with("LoopTestValue") || name.starts_with("mACalibration") || name.starts_with("sampleHistory") || name.starts_with("history") ||
         name.starts_with("laboratory") || name == "calibrationType" || name == "sampleFiller" || name.starts_with("temperatureCalibration");
}

}  // namespace

BasicTransmitter::BasicTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed, std::vector<Part> parts)
    : mDesktop(desktop), mTable(dataSet), mLog(mTable), mFlow(line, desktop.now(), seed), mParts(std::move(parts)) {
  static constexpr Part kOfAll[] = {
      {"temperatureSensor", "statusTemperatureSensorFailure", "eventTemperatureSensorFailure", false},
      {"electronics", "statusElectronicsFailure", "eventElectronicsFailure", true},
      {"memory", "statusMemoryFailure", "eventMemoryFailure", true},
      {"currentOutput", "statusCurrentOutputFailure", "eventCurrentOutputFailure", false},
      {"supplyVoltage", "statusSupplyVoltageFailure", "eventSupplyVoltageLow", false},
  };
  mParts.insert(mParts.end(), std::begin(kOfAll), std::end(kOfAll));
  for (const char* const name : {"swRevision", "swRevisionNumber"})
    if (const Parameter* const told = mTable.find(name)) mSoftware[name] = told->value.text;
}

void BasicTransmitter::powerUp() {
  mIsColdStart = true;
  mTable.setKey("simulation", "off");
  mLog.forget();
  mLog.count(EventLog::Kind::Info, "eventPowerUp");
}

std::string BasicTransmitter::read(const Parameter& parameter) {
  // These two last until they have been seen.
  if (parameter.name == "statusHARTColdStart") mIsColdStart = false;
  if (parameter.name == "statusHARTConfigurationChanged") mIsConfigurationChanged = false;
  return parameter.text(parameter.value);
}

Judgement BasicTransmitter::foresee(std::string_view command, const std::vector<Writing>& writings) {
  const ParameterTable::Values before = mTable.values();
  const Judgement judgement = tryOut(command, writings);
  mTable.restore(before);
  return judgement;
}

// The verdicts look at the memory as it would be: so it is written first.
Judgement BasicTransmitter::tryOut(std::string_view command, const std::vector<Writing>& writings) {
  if (mIsWriteProtected) {
    std::vector<std::string> all;
    for (const Writing& writing : writings) all.push_back(writing.parameter->name);
    return {Verdict::WriteProtected, std::move(all)};
  }
  for (const Writing& writing : writings) mTable.find(writing.parameter->name)->value = writing.value;
  return judge(command, writings);
}

Judgement BasicTransmitter::write(std::string_view command, const std::vector<Writing>& writings) {
  const ParameterTable::Values before = mTable.values();
  bool isNothingNew = command != "laboratoryResults";
  bool isConfiguration = false;
  for (const Writing& writing : writings) {
    const std::string& name = writing.parameter->name;
    const Value& present = writing.parameter->value;
    const bool isText = writing.parameter->type == Parameter::Type::Text;
    const bool isSame = isText ? present.text == writing.value.text : present.number == writing.value.number;
    isNothingNew = isNothingNew && isSame && name != "executeAction";
    isConfiguration = isConfiguration || !isAction(name);
  }
  Judgement judgement = tryOut(command, writings);
  if (judgement.isRefusal()) {
    mTable.restore(before);
    if (!mIsWriteProtected) refused(command, writings, judgement);
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

bool BasicTransmitter::setFault(std::string_view name, std::string_view argument) {
  if (name == "none") {
    mFailures.clear();
    mLacking.clear();
    setSoftware({});
    mIsWriteProtected = false;
    mFlow.setUnsteadiness(1);
    mFlow.setHeat(0);
    setDrift(0);
  } else if (name == "failure") {
    const bool known = std::any_of(mParts.begin(), mParts.end(), [&](const Part& part) { return part.name == argument; });
    if (!known) fail("no such failure: \"" + std::string(argument) + "\"");
    if (mFailures.empty()) {
      look();
      hold();
    }
    mFailures.emplace(argument);
    look();  // it is noticed, and recorded, at once
  } else if (name == "software" || name == "lacks") {
    if (argument.empty()) fail("the fault \"" + std::string(name) + "\" needs an argument");
    if (name == "software")
      setSoftware(argument);
    else
      mLacking.emplace(argument);
  } else if (name == "unsteady") {
    mFlow.setUnsteadiness(numberWithin(name, argument, 0, 1000));
  } else if (name == "heat") {
    mFlow.setHeat(numberWithin(name, argument, -500, 500));
  } else if (name == "drift") {
    setDrift(numberWithin(name, argument, -100, 100) / 100);
  } else if (name == "writeProtected") {
    mIsWriteProtected = true;
  } else if (name == "powerCycle") {
    powerUp();
  } else {
    return false;
  }
  return true;
}

void BasicTransmitter::setSoftware(std::string_view revision) {
  for (const auto& [name, own] : mSoftware) mTable.set(name, revision.empty() ? own : revision);
}

bool BasicTransmitter::isTooNarrow(std::string_view lower, std::string_view upper, double leastSpan) const {
  constexpr double kRounding = 1e-9;  // from 0.1 to 0.3 it is 0.2 too
  return mTable.number(upper, 0) - mTable.number(lower, 0) < leastSpan - kRounding;
}

// --- Self-monitoring

bool BasicTransmitter::isFailSafe() const {
  if (mTable.key("failSafeType") == "failSafeTypeIgnore") return false;
  return std::any_of(mParts.begin(), mParts.end(), [&](const Part& part) { return part.stopsMeasurement && failed(part.name); });
}

bool BasicTransmitter::isOutOfLimits(std::string_view name) const {
  const Parameter* const p = mTable.find(name);
  if (!p || std::isnan(p->value.number)) return false;
  return (p->lowest && p->value.number < *p->lowest) || (p->highest && p->value.number > *p->highest);
}

void BasicTransmitter::showTemperatures(std::int64_t tick, double processCorrection, double electronicsCorrection) {
  mTable.set("processTemperature", failed("temperatureSensor") ? kNothing : mFlow.processTemperature(tick) + processCorrection);
  mTable.set("electronicsTemperature", mFlow.electronicsTemperature(tick) + electronicsCorrection);
}

void BasicTransmitter::raise(std::string_view status, bool condition) {
  mTable.set(status, condition ? 1 : 0);
  mIsMoreStatus = mIsMoreStatus || condition;
}

bool BasicTransmitter::watch(std::initializer_list<Limit> limits) {
  mIsMoreStatus = false;
  for (const Part& part : mParts) {
    raise(part.status, failed(part.name));
    mLog.follow(EventLog::Kind::Error, part.event, failed(part.name));
  }
  bool isAnyOut = false;
  const auto follow = [&](const Limit& limit) {
    const bool isOut = isOutOfLimits(limit.measured);
    isAnyOut = isAnyOut || isOut;
    raise(limit.status, isOut);
    mLog.follow(EventLog::Kind::Warning, limit.event, isOut);
  };
  for (const Limit& limit : limits) follow(limit);
  follow({"processTemperature", "statusProcessTemperatureOutOfLimits", "eventProcessTemperatureHigh"});
  follow({"electronicsTemperature", "statusElectronicsTemperatureOutOfLimits", "eventElectronicsTemperatureHigh"});
  raise("statusFailSafeActive", isFailSafe());
  raise("statusWriteProtectionActive", mIsWriteProtected);
  return isAnyOut;
}

void BasicTransmitter::showBusStatus(const BusStatus& status) {
  mTable.set("statusHARTPVOutOfLimits", status.isPrimaryOut);
  mTable.set("statusHARTNonPVOutOfLimits", status.isOtherOut);
  mTable.set("statusHARTLoopCurrentOutOfLimits", status.isCurrentSaturated);
  mTable.set("statusHARTFixedCurrentActive", status.isCurrentFixed);
  mTable.set("statusHARTMoreStatusAvailable", mIsMoreStatus);
  mTable.set("statusHARTColdStart", mIsColdStart);
  mTable.set("statusHARTConfigurationChanged", mIsConfigurationChanged);
  mTable.set("statusHARTDeviceFailure", !mFailures.empty());
}

}  // namespace ostrand::simulator
