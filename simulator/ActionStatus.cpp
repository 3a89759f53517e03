#include "simulator/ActionStatus.h"

#include <algorithm>
#include <array>

namespace ostrand::simulator {

namespace {

constexpr std::string_view kOK = "actionStatusOK";
constexpr std::string_view kInvalidSampleNumber = "actionStatusInvalidSampleNumber";
constexpr std::string_view kTempCorrectionTooLarge = "actionStatusTempCorrectionTooLarge";
constexpr std::string_view kInvalidPulpType = "actionStatusInvalidPulpType";
constexpr std::string_view kInvalidRecipeNumber = "actionStatusInvalidRecipeNumber";
constexpr std::string_view kRecipeNotCalibrated = "actionStatusRecipeNotCalibrated";
constexpr std::string_view kCalibrationSampleNotTaken = "actionStatusCalibrationSampleNotTaken";
constexpr std::string_view kCalibrationSuspicious = "actionStatusCalibrationSuspicious";
constexpr std::string_view kCalibrationError = "actionStatusCalibrationError";
constexpr std::string_view kUpperCalPointInvalidValue = "actionStatusUpperCalPointInvalidValue";
constexpr std::string_view kLowerCalPointInvalidValue = "actionStatusLowerCalPointInvalidValue";
constexpr std::string_view kCalPointsSpanTooSmall = "actionStatusCalPointsSpanTooSmall";
constexpr std::string_view kDeviceWriteFailed = "actionStatusDeviceWriteFailed";
constexpr std::string_view kNewValuesSameAsOld = "actionStatusNewValuesSameAsOld";
constexpr std::string_view kSamplingError = "actionStatusSamplingError";
constexpr std::string_view kSpecialGradePointInvalid = "actionStatusSpecialGradePointInvalid";
constexpr std::string_view kInvalidCalibrationData = "actionStatusInvalidCalibrationData";
constexpr std::string_view kDampingValueInvalid = "actionStatusDampingValueInvalid";

constexpr std::string_view kAll[] = {
    kOK,
    kInvalidSampleNumber,
    kTempCorrectionTooLarge,
    kInvalidPulpType,
    kInvalidRecipeNumber,
    kRecipeNotCalibrated,
    kCalibrationSampleNotTaken,
    kCalibrationSuspicious,
    kCalibrationError,
    kUpperCalPointInvalidValue,
    kLowerCalPointInvalidValue,
    kCalPointsSpanTooSmall,
    kDeviceWriteFailed,
    kNewValuesSameAsOld,
    kSamplingError,
    kSpecialGradePointInvalid,
    kInvalidCalibrationData,
    kDampingValueInvalid,
};

// What is looked at after a write of this name. The first one is raised if a refusal has none of them of its own.
struct LookedAt {
  std::string_view command;
  std::array<std::string_view, 3> names;
};

constexpr LookedAt kLookedAt[] = {
    {"sampling", {kInvalidSampleNumber}},
    {"temperatureCalibration", {kTempCorrectionTooLarge}},
    {"recipes", {kInvalidPulpType}},
    {"activeRecipe", {kRecipeNotCalibrated, kInvalidRecipeNumber}},
    {"laboratoryResults", {kCalibrationError, kCalibrationSampleNotTaken, kCalibrationSuspicious}},
};

// A value that the item cannot hold.
std::string_view ofValue(std::string_view item) {
  if (item == "activeRecipe" || item == "laboratoryRecipe") return kInvalidRecipeNumber;
  if (item == "laboratoryValue1") return kLowerCalPointInvalidValue;
  if (item == "laboratoryValue2") return kUpperCalPointInvalidValue;
  if (item == "damping") return kDampingValueInvalid;
  if (item == "temperatureCalibrationCorrection") return kTempCorrectionTooLarge;
  if (item.ends_with("PulpType")) return kInvalidPulpType;
  if (item == "sampleFiller" || item == "calibrationType" || item.starts_with("recipe")) return kInvalidCalibrationData;
  if (item.starts_with("consistencyValue") || item.starts_with("consistencyOffset")) return kSpecialGradePointInvalid;
  return kDeviceWriteFailed;
}

std::string_view ofRefusal(const Judgement& judgement) {
  switch (judgement.verdict) {
    case Verdict::InvalidSelection:
    case Verdict::TooSmall:
    case Verdict::TooLarge: return ofValue(judgement.items.empty() ? "" : judgement.items.front());
    case Verdict::SampleRunning:
    case Verdict::SampleNotRunning: return kSamplingError;
    case Verdict::SampleNotTaken: return kCalibrationSampleNotTaken;
    case Verdict::PointsTooClose: return kCalPointsSpanTooSmall;
    case Verdict::CalibrationSuspicious: return kCalibrationSuspicious;
    case Verdict::PulpTypeNotAllowed: return kInvalidPulpType;
    case Verdict::RecipeNotCalibrated: return kRecipeNotCalibrated;
    case Verdict::TemperatureCorrectionTooLarge: return kTempCorrectionTooLarge;
    case Verdict::SpecialGradePointInvalid: return kSpecialGradePointInvalid;
    case Verdict::Accepted:
    case Verdict::CommandNotImplemented:
    case Verdict::AccessRestricted:
    case Verdict::WriteProtected:
    case Verdict::NoDataAvailable:
    case Verdict::SpanTooSmall: break;
  }
  return kDeviceWriteFailed;
}

}  // namespace

ActionStatus::ActionStatus(ParameterTable& table) : mTable(table) {
  for (std::string& name : names()) {
    Parameter bit;
    bit.name = std::move(name);
    bit.type = Parameter::Type::Integer;
    bit.unit = "noUnit";
    bit.value.number = 0;
    mTable.add(std::move(bit));
  }
}

std::vector<std::string> ActionStatus::names() { return {std::begin(kAll), std::end(kAll)}; }

void ActionStatus::clear() {
  for (const std::string_view name : kAll) mTable.set(name, 0);
}

void ActionStatus::record(std::string_view command, const Judgement& judgement) {
  clear();
  if (!judgement.isRefusal()) {
    mTable.set(kOK, 1);
    mTable.set(kNewValuesSameAsOld, judgement.isNothingNew);
    return;
  }
  const std::string_view raised = ofRefusal(judgement);
  mTable.set(raised, 1);
  for (const LookedAt& after : kLookedAt) {
    const bool isSeen = std::find(after.names.begin(), after.names.end(), raised) != after.names.end();
    if (after.command == command && !isSeen) mTable.set(after.names.front(), 1);
  }
}

}  // namespace ostrand::simulator
