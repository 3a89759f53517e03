#include "host/ActingValues.h"

namespace ostrand {

namespace {

// A name as it stands, or with what stands before it or behind it.
struct Pattern {
  enum class Place { Whole, Front, Tail, Within } place;
  std::string_view text;
  Acts acts;
};

using enum Pattern::Place;

constexpr Pattern kPatterns[] = {
    {Whole, "loopTestValue", Acts::ByButton},
    {Tail, "LoopTestValue", Acts::ByButton},
    {Whole, "executeAction", Acts::ByButton},
    {Whole, "sampleStart", Acts::ByButton},
    {Whole, "sampleAction", Acts::ByButton},
    {Front, "mACalibration", Acts::ByButton},
    {Within, "Trim", Acts::ByButton},
    {Front, "trim", Acts::ByButton},
    {Front, "temperatureCalibration", Acts::ByButton},
    {Front, "laboratoryValue", Acts::ByButton},
    {Whole, "laboratoryRecipe", Acts::ByButton},
    {Whole, "calibrationType", Acts::ByButton},
    {Whole, "sampleFiller", Acts::ByButton},
    {Front, "reset", Acts::ByButton},
    {Within, "Reset", Acts::ByButton},
    {Whole, "factoryDefaults", Acts::ByButton},
    {Front, "simulation", Acts::ByPage},
    {Whole, "targetMode", Acts::ByPage},
    {Front, "failSafe", Acts::ByPage},
    {Within, "FailSafe", Acts::ByPage},
};

bool fits(const Pattern& pattern, std::string_view name) {
  switch (pattern.place) {
    case Whole: return name == pattern.text;
    case Front: return name.starts_with(pattern.text);
    case Tail: return name.ends_with(pattern.text);
    case Within: return name.find(pattern.text) != name.npos;
  }
  return false;
}

}  // namespace

std::optional<Acts> actsOfWord(std::string_view word) {
  if (word == "button") return Acts::ByButton;
  if (word == "page") return Acts::ByPage;
  return std::nullopt;
}

Acts actsByName(std::string_view parameter) {
  // What the device tells of itself acts on nothing.
  if (parameter.starts_with("status")) return Acts::No;
  for (const Pattern& pattern : kPatterns)
    if (fits(pattern, parameter)) return pattern.acts;
  return Acts::No;
}

Acts actsOf(const DataSet* dataSet, std::string_view parameter) {
  const auto told = dataSet ? actsOfWord(dataSet->acts(parameter)) : std::nullopt;
  return told ? *told : actsByName(parameter);
}

}  // namespace ostrand
