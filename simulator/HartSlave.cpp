#include "simulator/HartSlave.h"

#include <algorithm>

#include "platform/base/Characters.h"

namespace ostrand::simulator {

namespace {

struct TextField {
  std::string_view name;
  std::size_t longest;
  bool isPacked;
};

constexpr TextField kTexts[] = {{"tag", 8, true}, {"description", 16, true}, {"message", 32, true}, {"longTag", 32, false}};

bool isPacked(char c) { return c >= ' ' && c <= '_'; }

}  // namespace

std::string_view HartSlave::errorKey(Verdict verdict) const {
  switch (verdict) {
    case Verdict::Accepted: break;
    case Verdict::CommandNotImplemented: return "hartCmdErrCommandIsNotImplemented";
    case Verdict::AccessRestricted: return "hartCmdErrAccessRestricted";
    case Verdict::TooSmall: return "hartCmdErrParameterTooSmall";
    case Verdict::TooLarge: return "hartCmdErrParameterTooLarge";
    case Verdict::WriteProtected: return "hartCmdErrInWriteProtectMode";
    case Verdict::SpanTooSmall: return "hartCmdErrSpanTooSmall";
    case Verdict::NoDataAvailable: return "hartCmdErrNoDataAvailable";
    case Verdict::PulpTypeNotAllowed:
    case Verdict::RecipeNotCalibrated: return "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed";
    // There is one code for everything that a calibration can be refused for.
    case Verdict::SampleNotTaken:
    case Verdict::PointsTooClose:
    case Verdict::CalibrationSuspicious:
    case Verdict::TemperatureCorrectionTooLarge: return "hartCmdErrSuspiciousCalibration";
    // Of actions, which this bus does not know.
    case Verdict::SampleRunning:
    case Verdict::SampleNotRunning:
    case Verdict::InvalidSelection:
    case Verdict::SpecialGradePointInvalid: return "hartCmdErrInvalidSelection";
  }
  return {};
}

bool HartSlave::isReadAlone(const Parameter& asked) const { return asked.name.ends_with("SampleCount"); }

bool HartSlave::isCommandOfItsOwn(const Parameter& written) const {
  return written.name.starts_with("channel") && written.name.ends_with("LoopTestValue");
}

Verdict HartSlave::check(const Parameter& parameter, std::string_view text, Value& value) const {
  const Verdict verdict = BusSlave::check(parameter, text, value);
  if (verdict != Verdict::Accepted || parameter.type != Parameter::Type::Text) return verdict;
  const auto field = std::find_if(std::begin(kTexts), std::end(kTexts), [&](const TextField& f) { return f.name == parameter.name; });
  if (field == std::end(kTexts)) return Verdict::Accepted;
  if (characterCount(text) > field->longest) return Verdict::TooLarge;
  return !field->isPacked || std::all_of(text.begin(), text.end(), isPacked) ? Verdict::Accepted : Verdict::InvalidSelection;
}

}  // namespace ostrand::simulator
