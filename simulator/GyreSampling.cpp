#include "simulator/GyreSampling.h"

#include <algorithm>
#include <cmath>

#include "simulator/RecipeNames.h"

namespace ostrand::simulator {

namespace {

constexpr double kLargeDeviation = 0.05;  // of the average
// The memory for one sample, an hour; what comes later is not averaged any more.
constexpr std::int64_t kLongestSample = 7200;

// How the samples of the past were taken.
constexpr std::int64_t kBetweenSamples = PulpFlow::ticks(7 * 3600 + 270);
constexpr std::int64_t kUsualSample = PulpFlow::ticks(30);
constexpr std::int64_t kInWater = -PulpFlow::ticks(21.0 * 24 * 3600);
constexpr double kLaboratoryError = 0.006;  // of the value
constexpr std::size_t kWithoutLaboratory = 3;

std::string timeText(LocalTime time) { return standardDateAndTime(time).substr(0, std::string_view("2026-01-05 08:00:01").size()); }
double rounded(double value, double step) { return std::floor(value / step + 0.5) * step; }

}  // namespace

GyreHistory::Record GyreSampling::average(const Span& span, const GyreProcess::Pulp& pulp, const GyreRecipe& recipe) const {
  GyreHistory::Record record{};
  record.time = timeText(mFlow.timeOf(span.first));
  record.laboratory = kNothing;
  record.laboratoryFiller = 100 * recipe.filler;
  double count = 0;
  double squares = 0;
  for (std::int64_t tick = span.first; tick <= span.last; ++tick) {
    const double torque = mProcess.torque(tick, pulp);
    const double measured = recipe.reading(torque - mHistory.waterTorque());
    record.lowest = count == 0 ? measured : std::min(record.lowest, measured);
    record.highest = count == 0 ? measured : std::max(record.highest, measured);
    count += 1;
    record.torque += torque;
    record.temperature += mFlow.processTemperature(tick);
    record.truth += mFlow.consistency(tick);
    const double difference = measured - record.consistency;
    record.consistency += difference / count;
    squares += difference * (measured - record.consistency);
  }
  record.torque /= count;
  record.temperature /= count;
  record.truth /= count;
  record.deviation = std::sqrt(squares / count);
  return record;
}

void GyreSampling::takeThoseOfThePast(unsigned seed) {
  GyreHistory::Record water{};
  water.time = timeText(mFlow.timeOf(kInWater));
  water.temperature = mFlow.electronicsTemperature(kInWater);
  water.torque = mProcess.torqueInWater(kInWater);
  water.laboratory = water.laboratoryFiller = kNothing;
  mHistory.setWater(std::move(water));

  for (const auto& [number, count] : mHistory.promised()) {
    const Noise laboratory(seed, 20 + static_cast<unsigned>(number));
    const GyreRecipe own = recipe(number);
    for (std::size_t each = count; each > 0; --each) {
      const std::int64_t first = -static_cast<std::int64_t>(each) * kBetweenSamples - PulpFlow::ticks(1800 * number);
      GyreHistory::Record record = average({first, first + kUsualSample - 1}, {own.curve, own.filler}, own);
      if (each > kWithoutLaboratory) record.laboratory = rounded(record.truth * (1 + kLaboratoryError * laboratory.normal(first)), 0.01);
      mHistory.add(number, std::move(record));
    }
  }
}

GyreSampling::Span GyreSampling::soFar(std::int64_t tick) const { return {mStart, std::clamp(tick, mStart, mStart + kLongestSample - 1)}; }

void GyreSampling::start(const Moment& now) {
  mIsRunning = true;
  mStart = now.tick;
  showNothing();
}

void GyreSampling::stop(const Moment& now) {
  if (!mIsRunning) return;
  mIsRunning = false;
  if (now.isBlind) return showNothing();
  const int active = GyreRecipe::active(mTable);
  const GyreHistory::Record record = average(soFar(now.tick), mPulp, recipe(active));
  show(record);
  if (record.deviation > kLargeDeviation * record.consistency) mLog.count(EventLog::Kind::Warning, "eventSampleDeviationLarge");
  mHistory.add(active, record);
}

void GyreSampling::show(const Moment& now) {
  if (now.isBlind)
    showNothing();
  else
    show(average(soFar(now.tick), mPulp, recipe(GyreRecipe::active(mTable))));
}

void GyreSampling::showNothing() {
  mTable.set("sampleTime", timeText(mFlow.timeOf(mStart)));
  for (const char* const name : {"sampleConsistency", "sampleTorque", "sampleProcessTemperature"}) mTable.set(name, kNothing);
}

void GyreSampling::show(const GyreHistory::Record& record) {
  mTable.set("sampleTime", record.time);
  mTable.set("sampleConsistency", record.consistency);
  mTable.set("sampleTorque", record.torque);
  mTable.set("sampleProcessTemperature", record.temperature);
}

}  // namespace ostrand::simulator
