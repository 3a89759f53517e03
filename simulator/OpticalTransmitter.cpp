#include "simulator/OpticalTransmitter.h"

#include <algorithm>
#include <cmath>

#include "simulator/Damping.h"

namespace ostrand::simulator {

namespace {

struct Variable {
  const char* name;
  const char* status;
};

// What the channels measure, in their order.
constexpr Variable kVariables[] = {
    {"consistency", "statusConsistencyOutOfLimits"},
    {"ash", "statusAshOutOfLimits"},
    {"floc", "statusFlocOutOfLimits"},
    {"ashPercent", "statusAshPercentOutOfLimits"},
    {"totalRetention", "statusTotalRetentionOutOfLimits"},
    {"fillerRetention", "statusFillerRetentionOutOfLimits"},
};

// The weights of the lights in consistency and ash, as they leave the factory. The second grade is made of other fibres.
struct Grade {
  std::array<double, OpticalProcess::kLights> consistency, ash;
};

constexpr Grade kGrades[] = {
    {{0.1661, 0.2801, 0.1830, 0.2000, 0.2025}, {-0.0221, -0.0840, 0.2537, -0.0926, 0.3956}},
    {{0.1435, 0.2318, 0.2188, 0.1583, 0.2671}, {-0.0245, -0.0933, 0.2819, -0.1029, 0.4396}},
};

// Its flicker tells the flocs.
constexpr std::size_t kLightOfFloc = OpticalProcess::kLights - 1;

// How much of a water measurement goes into the filtered value, and how many measurements still count.
constexpr double kFilterShare = 0.3;
constexpr int kFilterLength = 12;

std::string channelName(std::size_t channel, const char* what) { return "channel" + std::to_string(channel) + what; }
std::string lightName(const char* prefix, std::size_t light, const char* what) {
  return std::string(prefix) + OpticalProcess::kLightNames[light] + what;
}

bool isWritten(const std::vector<Writing>& writings, const std::string& name) {
  return std::any_of(writings.begin(), writings.end(), [&](const Writing& each) { return each.parameter->name == name; });
}

}  // namespace

OpticalTransmitter::OpticalTransmitter(const Desktop& desktop, const Document& dataSet, const PulpLine& line, unsigned seed)
    : BasicTransmitter(desktop, dataSet, line, seed,
                       {{"sensor", "statusDetectorFailure", "eventSensorFailure", true},
                        {"led", "statusLedFailure", "", true},
                        {"laser", "statusLaserFailure", "", true}}),
      mProcess(mFlow, seed) {
  // No light at all is no failure of a part, and leaves nothing to measure either.
  OpticalTransmitter::hold();
  OpticalTransmitter::powerUp();
}

void OpticalTransmitter::powerUp() {
  mLoopTests = {};
  mWaterFrom = now();
  BasicTransmitter::powerUp();
}

void OpticalTransmitter::hold() {
  for (std::size_t channel = 0; channel < kChannels; ++channel) mLastCurrents[channel] = mTable.number(channelName(channel, "OutputCurrent"), 4);
}

// --- Measurement ---

Interruption OpticalTransmitter::waterMeasurement() const {
  const double length = mTable.number("flushingTime", 0) + mTable.number("waterMeasurementTime", 0) + mTable.number("sampleWaitingTime", 0);
  return {mWaterFrom, Interruption::ticks(mTable.number("measurementTime", 0)), Interruption::ticks(length)};
}

bool OpticalTransmitter::isDark(std::size_t light) const { return failed("sensor") || failed(OpticalProcess::isLaser(light) ? "laser" : "led"); }

OpticalTransmitter::PerLight OpticalTransmitter::showWaterValues() {
  const Interruption measurement = waterMeasurement();
  const std::int64_t last = measurement.lastEnd(now());
  PerLight filtered;
  for (std::size_t light = 0; light < filtered.size(); ++light) {
    double sum = 0;
    double weights = 0;
    double weight = 1;
    for (int back = 0; back < kFilterLength; ++back, weight *= 1 - kFilterShare) {
      sum += weight * mProcess.voltageInWater(light, last - back * measurement.cycle());
      weights += weight;
    }
    filtered[light] = isDark(light) ? 0 : sum / weights;
    mTable.set(lightName("water", light, "V"), isDark(light) ? 0 : mProcess.voltageInWater(light, last));
    mTable.set(lightName("water", light, "Filt"), filtered[light]);
  }
  return filtered;
}

OpticalTransmitter::PerChannel OpticalTransmitter::measured(std::int64_t tick, const PerLight& inWater) const {
  const std::string_view chosen = mTable.key("activeGrade") == "digitalInput" ? mTable.key("binaryInputGrade") : mTable.key("activeGrade");
  const Grade& grade = kGrades[chosen == "grade2"];
  double consistency = 0;
  double ash = 0;
  for (std::size_t light = 0; light < inWater.size(); ++light) {
    const double loss = isDark(light) ? kNothing : inWater[light] / mProcess.voltage(light, tick) - 1;
    consistency += grade.consistency[light] * loss;
    ash += grade.ash[light] * loss;
  }
  const OpticalProcess::Stock whiteWater = mProcess.whiteWater(tick);
  const double floc = isDark(kLightOfFloc) ? kNothing : mProcess.floc(tick);
  return {consistency, ash, floc, 100 * ash / consistency, 100 * (1 - whiteWater.consistency / consistency), 100 * (1 - whiteWater.ash / ash)};
}

void OpticalTransmitter::showMeasurement(const PerLight& inWater) {
  const Interruption interruption = waterMeasurement();
  const std::int64_t tick = interruption.undisturbed(now());
  // Most of what one channel's filter needs, the others need too.
  std::vector<PerChannel> past;
  for (std::size_t channel = 0; channel < kChannels; ++channel) {
    const double value = damped(mTable.number(channelName(channel, "Damping"), 0), [&](std::int64_t back) {
      while (past.size() <= static_cast<std::size_t>(back))
        past.push_back(measured(interruption.undisturbed(tick - static_cast<std::int64_t>(past.size())), inWater));
      return past[static_cast<std::size_t>(back)][channel];
    });
    mTable.set(kVariables[channel].name, value);
  }
  showTemperatures(now(), 0, 0);
}

void OpticalTransmitter::look() {
  showMeasurement(showWaterValues());
  std::array<CurrentOutput, kChannels> outputs;
  for (std::size_t channel = 0; channel < kChannels; ++channel) {
    outputs[channel] = output(channel);
    mTable.set(channelName(channel, "OutputCurrent"), outputs[channel].current);
  }
  showStatus(outputs);
}

CurrentOutput OpticalTransmitter::output(std::size_t channel) const {
  const double lower = mTable.number(channelName(channel, "LowerRangeValue"), 0);
  const double upper = mTable.number(channelName(channel, "UpperRangeValue"), 100);
  CurrentOutput out = CurrentOutput::of(mTable.number(kVariables[channel].name), lower, upper);
  if (isFailSafe() || std::isnan(out.percent)) out.alarm(mTable.key(channelName(channel, "FailSafeAlarmCurrent")), mLastCurrents[channel]);
  if (mLoopTests[channel] != 0) out.fix(mLoopTests[channel]);
  return out;
}

// --- Status ---

void OpticalTransmitter::showStatus(const std::array<CurrentOutput, kChannels>& outputs) {
  BusStatus bus{false, watch({}), false, false};
  const auto isBeyond = [&](double value, const std::string& lowest, const std::string& highest) {
    return value < mTable.number(lowest) || value > mTable.number(highest);
  };
  for (std::size_t channel = 0; channel < kChannels; ++channel) {
    const double value = mTable.number(kVariables[channel].name);
    const bool isOut = isBeyond(value, channelName(channel, "LowerSensorLimit"), channelName(channel, "UpperSensorLimit"));
    raise(kVariables[channel].status, isOut);
    (channel == 0 ? bus.isPrimaryOut : bus.isOtherOut) |= isOut;
    bus.isCurrentSaturated |= outputs[channel].isSaturated;
    bus.isCurrentFixed |= outputs[channel].isFixed;
  }
  for (std::size_t light = 0; light < OpticalProcess::kLights; ++light) {
    const double value = mTable.number(lightName("water", light, "Filt"));
    const bool isOut = isBeyond(value, lightName("limitWater", light, "Low"), lightName("limitWater", light, "High"));
    raise(lightName("statusWater", light, "OutOfLimits"), isOut);
    bus.isOtherOut |= isOut;
  }
  raise("statusLoopTestActive", std::any_of(mLoopTests.begin(), mLoopTests.end(), [](double test) { return test != 0; }));
  raise("statusWaterMeasurementActive", waterMeasurement().undisturbed(now()) != now());
  showBusStatus(bus);
}

// --- Writes ---

Judgement OpticalTransmitter::judge(std::string_view, const std::vector<Writing>& writings) {
  for (const Writing& writing : writings) {
    const bool isTooSmall = writing.value.number != 0 && writing.value.number < CurrentOutput::kLowestTest;
    if (isTooSmall && writing.parameter->name.ends_with("LoopTestValue")) return {Verdict::TooSmall, {writing.parameter->name}};
  }
  const auto becomesTooNarrow = [&](const std::string& lower, const std::string& upper, double leastSpan) {
    return (isWritten(writings, lower) || isWritten(writings, upper)) && isTooNarrow(lower, upper, leastSpan);
  };
  for (std::size_t channel = 0; channel < kChannels; ++channel) {
    const std::string lower = channelName(channel, "LowerRangeValue");
    const std::string upper = channelName(channel, "UpperRangeValue");
    if (becomesTooNarrow(lower, upper, mTable.number(channelName(channel, "MinimumSpan"), 0))) return {Verdict::SpanTooSmall, {lower, upper}};
  }
  for (std::size_t light = 0; light < OpticalProcess::kLights; ++light) {
    const std::string lower = lightName("limitWater", light, "Low");
    const std::string upper = lightName("limitWater", light, "High");
    if (becomesTooNarrow(lower, upper, 0)) return {Verdict::InvalidSelection, {lower, upper}};
  }
  return {};
}

void OpticalTransmitter::takeEffect(const Writing& writing) {
  const std::string& name = writing.parameter->name;
  for (std::size_t channel = 0; channel < kChannels; ++channel)
    if (name == channelName(channel, "LoopTestValue")) mLoopTests[channel] = writing.value.number;
  if (name == "measurementTime" || name == "flushingTime" || name == "waterMeasurementTime" || name == "sampleWaitingTime") mWaterFrom = now();
}

}  // namespace ostrand::simulator
