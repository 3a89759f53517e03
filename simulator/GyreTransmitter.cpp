#include "simulator/GyreTransmitter.h"

#include <algorithm>

#include "simulator/Damping.h"
#include "simulator/RecipeNames.h"

namespace ostrand::simulator {

namespace {

// What leaves the torque of the water to others.
constexpr int kFirstLeaving = 65;
constexpr int kLastLeaving = 66;

constexpr std::string_view kCurveType = "CurveType";
constexpr std::string_view kPulpType = "PulpType";

bool isOfRecipe(const Writing& writing, std::string_view what) {
  return writing.parameter->name.starts_with("recipe") && writing.parameter->name.ends_with(what);
}

bool isPulp(std::string_view curveType) { return curveType != "polynome" && curveType != "specialGrade"; }

// "recipe1" of "recipe1PulpType".
std::string recipePart(const Writing& writing, std::string_view what) {
  return writing.parameter->name.substr(0, writing.parameter->name.size() - what.size());
}

}  // namespace

GyreTransmitter::GyreTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed)
    : ConsistencyTransmitter(
          desktop, dataSet, line, seed,
          {{"sensor", "statusTorqueSensorFailure", "eventTorqueSensorFailure", true}, {"motor", "statusMotorFailure", "eventMotorFailure", true}},
          {"torque", "statusTorqueOutOfLimits", "eventTorqueHigh"}),
      mHistory(mTable),
      mProcess(mFlow, seed),
      mPulp{recipe(GyreRecipe::active(mTable)).curve},
      mSampling(mTable, mLog, mHistory, mProcess, mFlow, mPulp) {
  // It is started by a read, but no read of its group starts it.
  if (Parameter* const start = mTable.find("sampleStart")) start->readable = true;
  mSampling.takeThoseOfThePast(seed);
  GyreTransmitter::powerUp();
}

void GyreTransmitter::powerUp() {
  mSampling.forget();
  ConsistencyTransmitter::powerUp();
}

// --- Measurement ---

bool GyreTransmitter::leavesWaterIn() const {
  const auto revision = [&](std::string_view name) {
    const Parameter* const told = mTable.find(name);
    return told && hasCommandFor(*told) ? minorRevision(told->value.text) : 0;
  };
  const int software = revision("swRevisionNumber");
  return software >= kFirstLeaving && software <= kLastLeaving && revision("tcuSWRevisionNumber") == 0;
}

double GyreTransmitter::measure() {
  const auto torqueAt = [&](std::int64_t tick) { return mProcess.torque(tick, mPulp) - mHistory.waterTorque(); };
  mHistory.setTellsWater(leavesWaterIn());
  const GyreRecipe active = recipe(GyreRecipe::active(mTable));
  mTable.set("activeRecipeCalibrated", active.isCalibrated);

  const std::int64_t tick = now();
  const double torque = torqueAt(tick);
  mTable.set("torque", isBlind() ? kNothing : torque + (leavesWaterIn() ? mHistory.waterTorque() : 0));
  mTable.set("consistencyUnfiltered", isBlind() ? kNothing : active.reading(torque));
  const auto past = [&](std::int64_t back) { return torqueAt(tick - back); };
  return isBlind() ? kNothing : active.reading(damped(mTable.number("damping", 0), past));
}

std::optional<double> GyreTransmitter::laboratoryValue(int sample) const {
  const GyreHistory::Record* const record = mHistory.withId(GyreRecipe::active(mTable), sample);
  return record ? std::optional(record->truth) : std::nullopt;
}

// --- Reads ---

void GyreTransmitter::beginRead(const std::vector<const Parameter*>& asked) {
  const auto isAsked = [&](std::string_view name) {
    return std::any_of(asked.begin(), asked.end(), [&](const Parameter* each) { return each->name == name; });
  };
  if (isAsked("sampleStart")) return mSampling.start(moment());
  // Who wants the sample asks for its values and for the recipe that it belongs to. Who reads them among others only looks.
  const auto isOfSample = [](const Parameter* each) { return each->name.starts_with("sample") || each->name == "activeRecipe"; };
  if (isAsked("sampleConsistency") && std::all_of(asked.begin(), asked.end(), isOfSample)) mSampling.stop(moment());
}

std::string GyreTransmitter::read(const Parameter& parameter) {
  if (mSampling.isRunning() && parameter.name.starts_with("sample")) mSampling.show(moment());
  return ConsistencyTransmitter::read(parameter);
}

// --- Writes ---

Judgement GyreTransmitter::judge(std::string_view, const std::vector<Writing>& writings) {
  for (const Writing& writing : writings) {
    const std::string& name = writing.parameter->name;
    if (name == "sampleStart") return {Verdict::CommandNotImplemented, {name}};
    if (const Verdict verdict = verdictOn(writing); verdict != Verdict::Accepted) return {verdict, {name}};
  }
  if (Judgement onCurves = verdictOnCurves(writings); onCurves.isRefusal()) return onCurves;
  if (Judgement onRange = verdictOnRange(writings); onRange.isRefusal()) return onRange;
  return mHistory.verdictOn(writings);
}

Judgement GyreTransmitter::verdictOnCurves(const std::vector<Writing>& writings) const {
  for (const Writing& writing : writings) {
    const bool isCurve = isOfRecipe(writing, kCurveType);
    if (!isCurve && !isOfRecipe(writing, kPulpType)) continue;
    const std::string_view key = writing.parameter->key(writing.value);
    if (isPulp(key) && !GyreRecipe::curveOfPulp(key, mTable)) return {Verdict::PulpTypeNotAllowed, {writing.parameter->name}};
    if (!isCurve || !isPulp(key)) continue;
    const std::string pulp = recipePart(writing, kCurveType).append(kPulpType);
    const bool isOther = std::any_of(writings.begin(), writings.end(),
                                     [&](const Writing& other) { return other.parameter->name == pulp && other.parameter->key(other.value) != key; });
    if (isOther) return {Verdict::InvalidSelection, {writing.parameter->name, pulp}};
  }
  return {};
}

// One name for the curve and for the pulp, unless the curve is no pulp's.
void GyreTransmitter::followCurve(const Writing& writing) {
  const std::string_view key = writing.parameter->key(writing.value);
  if (isOfRecipe(writing, kCurveType)) {
    if (isPulp(key)) mTable.setKey(recipePart(writing, kCurveType).append(kPulpType), key);
  } else {
    const std::string curve = recipePart(writing, kPulpType).append(kCurveType);
    if (isPulp(mTable.key(curve))) mTable.setKey(curve, key);
  }
}

void GyreTransmitter::takeEffect(const Writing& writing) {
  if (isOfRecipe(writing, kCurveType) || isOfRecipe(writing, kPulpType))
    followCurve(writing);
  else if (isOfRecipe(writing, "LinearizationOffsetP2"))
    mLog.count(EventLog::Kind::Info, "eventRecipeCalibrated");
  else if (GyreHistory::isAbout(writing))
    mHistory.takeEffect(writing);
  else
    ConsistencyTransmitter::takeEffect(writing);
}

}  // namespace ostrand::simulator
