#include "simulator/BladeSampling.h"

#include <algorithm>
#include <cmath>

#include "simulator/RecipeNames.h"
#include "simulator/LaboratoryCalibration.h"

namespace ostrand::simulator {

namespace {

constexpr double kLargeDeviation = 0.05;  // of the average
// The memory for one sample, an hour; what comes later is not averaged any more.
constexpr std::int64_t kLongestSample = 7200;

constexpr const char* kOfSample[] = {"ConsistencyAverage", "Deviation", "ShearForceAverage"};

}  // namespace

void BladeSampling::start(int number, const Moment& now) {
  if (mRunning != 0) stop(mRunning, now);
  mRunning = number;
  mStart = now.tick;
  sample(number).reset();
  for (const char* what : kOfSample) mTable.set(sampleName(number, what), kNothing);
  mTable.set(sampleName(number, "Quality"), 1);
}

BladeSampling::Average BladeSampling::average(const Moment& now) const {
  Average result{};
  const std::int64_t end = std::min(now.tick, mStart + kLongestSample - 1);
  double squares = 0;
  double count = 0;
  for (std::int64_t tick = mStart; tick <= end && !now.isBlind; ++tick) {
    if (mFlushing.undisturbed(tick) != tick) continue;
    const double force = mProcess.shearForce(tick);
    const double measured = mCurve.reading(mCurve.activeRecipe(), force);
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

void BladeSampling::showAverage(const Average& average) {
  mTable.set(sampleName(mRunning, "ConsistencyAverage"), average.isEmpty ? kNothing : average.consistency);
  mTable.set(sampleName(mRunning, "Deviation"), average.isEmpty ? kNothing : average.deviation);
  mTable.set(sampleName(mRunning, "ShearForceAverage"), average.isEmpty ? kNothing : average.shearForce);
}

void BladeSampling::stop(int number, const Moment& now) {
  if (mRunning != number) return;
  const Average taken = average(now);
  showAverage(taken);
  mRunning = 0;
  if (taken.isEmpty) return;
  sample(number) = Sample{taken.shearForce, taken.laboratory};
  const bool isUneven = taken.deviation > kLargeDeviation * taken.consistency;
  mTable.set(sampleName(number, "Quality"), isUneven);
  if (isUneven) mLog.count(EventLog::Kind::Warning, "eventSampleDeviationLarge");
}

void BladeSampling::forget() {
  // No sample is no good sample.
  mRunning = 0;
  for (const int number : {1, 2}) {
    sample(number).reset();
    for (const char* what : kOfSample) mTable.set(sampleName(number, what), 0);
    mTable.set(sampleName(number, "Quality"), 1);
  }
}

std::optional<double> BladeSampling::laboratoryValue(int sample) const {
  if (sample < 1 || sample > 2) return std::nullopt;
  const std::optional<Sample>& taken = mSamples[static_cast<std::size_t>(sample - 1)];
  return taken ? std::optional(taken->laboratory) : std::nullopt;
}

Judgement BladeSampling::calibrate() {
  const int recipe = recipeOf(mTable.number("laboratoryRecipe", 1));
  const std::string_view type = mTable.key("calibrationType");
  if (!mCurve.blade().allows(mTable.key(recipeName(recipe, "PulpType")))) return {Verdict::PulpTypeNotAllowed, {"laboratoryRecipe"}};

  mTable.set(recipeName(recipe, "Filler"), mTable.number("sampleFiller", 0));
  std::vector<CalibrationPoint> points;
  std::vector<std::string> values;
  for (const int number : {1, 2}) {
    if (type == (number == 1 ? "useSample2Only" : "useSample1Only")) continue;
    values.push_back("laboratoryValue" + std::to_string(number));
    const std::optional<Sample>& taken = sample(number);
    if (!taken) return {Verdict::SampleNotTaken, {values.back()}};
    points.push_back({mCurve.linearInput(recipe, taken->shearForce), mTable.number(values.back(), 0)});
  }
  const Calibration result = calibrated(points, mTable.number(recipeName(recipe, "LinearizationSlopeP1"), 1));
  if (result.verdict != Verdict::Accepted) return {result.verdict, values};
  mTable.set(recipeName(recipe, "LinearizationSlopeP1"), result.slope);
  mTable.set(recipeName(recipe, "LinearizationOffsetP2"), result.offset);
  mLog.count(EventLog::Kind::Info, "eventRecipeCalibrated");
  return {};
}

}  // namespace ostrand::simulator
