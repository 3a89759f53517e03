#include "simulator/GyreRecipe.h"

#include <algorithm>

#include "simulator/GyreHistory.h"
#include "simulator/RecipeNames.h"

namespace ostrand::simulator {

namespace {

// The factors that the user has typed; nothing as long as no factor lets the consistency rise.
std::optional<GyreCurve> typedCurve(int recipe, const ParameterTable& table) {
  GyreCurve curve;
  const char* const names[] = {"PolynomeC0", "PolynomeC1", "PolynomeC2", "PolynomeC3"};
  for (std::size_t power = 0; power < curve.factors.size(); ++power) curve.factors[power] = table.number(recipeName(recipe, names[power]), 0);
  const bool isFlat = std::all_of(curve.factors.begin() + 1, curve.factors.end(), [](double factor) { return factor == 0; });
  return isFlat ? std::nullopt : std::optional(curve);
}

std::optional<GyreCurve> curveOf(int recipe, const ParameterTable& table, const GyreHistory& history) {
  const std::string_view type = table.key(recipeName(recipe, "CurveType"));
  if (type == "polynome") return typedCurve(recipe, table);
  if (type == "specialGrade") return history.curveOfLaboratory(recipe);
  const GyreCurve* const ofPulp = GyreRecipe::curveOfPulp(type, table);
  return ofPulp ? std::optional(*ofPulp) : std::nullopt;
}

}  // namespace

int GyreRecipe::active(const ParameterTable& table) { return recipeOf(table.number("activeRecipe", 1)); }

const GyreCurve* GyreRecipe::curveOfPulp(std::string_view pulpType, const ParameterTable& table) {
  const Parameter* const software = table.find("swRevisionNumber");
  return gyreCurve(table.key("sensorType"), pulpType, software ? minorRevision(software->value.text) : 0);
}

GyreRecipe GyreRecipe::of(int recipe, const ParameterTable& table, const GyreHistory& history) {
  const std::optional<GyreCurve> curve = curveOf(recipe, table, history);
  const double slope = table.number(recipeName(recipe, "LinearizationSlopeP1"), 0);
  const double offset = table.number(recipeName(recipe, "LinearizationOffsetP2"), 0);
  const double filler = std::clamp(table.number(recipeName(recipe, "Filler"), 0), 0.0, 90.0) / 100;
  if (!curve || slope == 0) return {generalGyreCurve(), 1, 0, filler, false};
  return {*curve, slope, offset, filler, true};
}

}  // namespace ostrand::simulator
