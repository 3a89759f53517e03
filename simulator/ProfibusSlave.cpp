#include "simulator/ProfibusSlave.h"

#include <algorithm>

#include "platform/base/Characters.h"
#include "simulator/ActionStatus.h"

namespace ostrand::simulator {

namespace {

constexpr std::size_t kLongestText = 32;

constexpr std::string_view kSampleData[] = {"sample1ConsistencyAverage", "sample1Deviation", "sample2ConsistencyAverage", "sample2Deviation"};

constexpr std::string_view kActions[] = {"activeRecipe", "laboratoryResults", "recipes", "resetingEventLog", "sampling", "temperatureCalibration"};

bool contains(const std::vector<std::string>& names, std::string_view name) { return std::find(names.begin(), names.end(), name) != names.end(); }

}  // namespace

std::string_view ProfibusSlave::errorKey(Verdict verdict) const {
  switch (verdict) {
    case Verdict::Accepted: break;
    case Verdict::CommandNotImplemented: return "commandIsNotImplemented";
    case Verdict::AccessRestricted:
    case Verdict::WriteProtected: return "profibusErrAccessDenied";
    case Verdict::TooSmall:
    case Verdict::TooLarge:
    case Verdict::SpanTooSmall: return "profibusErrInvalidRange";
    case Verdict::NoDataAvailable: return "errTestDataNoDataError";
    case Verdict::SpecialGradePointInvalid: return "actionStatusSpecialGradePointInvalid";
    // The rest can only happen to a write that makes the device act.
    case Verdict::InvalidSelection:
    case Verdict::SampleRunning:
    case Verdict::SampleNotRunning:
    case Verdict::SampleNotTaken:
    case Verdict::PointsTooClose:
    case Verdict::CalibrationSuspicious:
    case Verdict::PulpTypeNotAllowed:
    case Verdict::RecipeNotCalibrated:
    case Verdict::TemperatureCorrectionTooLarge: return "profibusErrInvalidParameter";
  }
  return {};
}

Verdict ProfibusSlave::check(const Parameter& parameter, std::string_view text, Value& value) const {
  if (parameter.type == Parameter::Type::Text && characterCount(text) > kLongestText) return Verdict::TooLarge;
  return BusSlave::check(parameter, text, value);
}

std::vector<std::string> ProfibusSlave::answeredWith(std::vector<std::string> names) const {
  const auto isAsked = [&](std::string_view name) { return contains(names, name); };
  if (names.size() == std::size(kSampleData) && std::all_of(std::begin(kSampleData), std::end(kSampleData), isAsked)) {
    names.insert(names.end(), {"sample1Quality", "sample2Quality"});
    return names;
  }
  const auto status = std::find(names.begin(), names.end(), "actionStatus");
  if (status == names.end()) return names;
  names.erase(status);
  for (std::string& bit : ActionStatus::names())
    if (!contains(names, bit)) names.push_back(std::move(bit));
  return names;
}

bool ProfibusSlave::acknowledgesRefusal(std::string_view command) const {
  return std::find(std::begin(kActions), std::end(kActions), command) != std::end(kActions);
}

}  // namespace ostrand::simulator
