#include "simulator/BladeCurve.h"

#include <algorithm>
#include <cmath>

#include "simulator/RecipeNames.h"

namespace ostrand::simulator {

namespace {

// What titanium dioxide takes from the force, in parts of the consistency.
constexpr double kTitaniumDioxide = 0.03;

std::string pointName(const char* what, int point) {
  return std::string(what) + static_cast<char>('0' + point / 10) + static_cast<char>('0' + point % 10);
}

}  // namespace

int BladeCurve::activeRecipe() const { return recipeOf(mTable.number("activeRecipe", 1)); }

double BladeCurve::specialGradeOffset(double consistency) const {
  double beforeValue = 0;
  double before = 0;
  for (int point = 0; point < 16; ++point) {
    const double value = mTable.number(pointName("consistencyValue", point));
    const double offset = mTable.number(pointName("consistencyOffset", point), 0);
    if (std::isnan(value)) break;
    if (consistency <= value) {
      if (point == 0 || value <= beforeValue) return offset;
      return before + (offset - before) * (consistency - beforeValue) / (value - beforeValue);
    }
    beforeValue = value;
    before = offset;
  }
  return before;
}

double BladeCurve::linearInput(int recipe, double shearForce) const {
  const std::string_view pulp = mTable.key(recipeName(recipe, "PulpType"));
  double consistency = blade().consistency(shearForce, pulpFactor(pulp));
  if (pulp == "pulpTypeSpecialGrade") consistency += specialGradeOffset(consistency);
  if (mTable.key("titaniumDioxideCompensation") == "on") consistency /= 1 - kTitaniumDioxide;
  // Filler leaves no force on the blade, but counts in the consistency.
  return consistency / (1 - std::clamp(mTable.number(recipeName(recipe, "Filler"), 0), 0.0, 90.0) / 100);
}

double BladeCurve::reading(int recipe, double shearForce) const {
  const double slope = mTable.number(recipeName(recipe, "LinearizationSlopeP1"), 1);
  return slope * linearInput(recipe, shearForce) + mTable.number(recipeName(recipe, "LinearizationOffsetP2"), 0);
}

Verdict BladeCurve::verdictOnRecipe(int recipe) const {
  const std::string_view pulp = mTable.key(recipeName(recipe, "PulpType"));
  if (!blade().allows(pulp)) return Verdict::PulpTypeNotAllowed;
  const double slope = mTable.number(recipeName(recipe, "LinearizationSlopeP1"));
  if (std::isnan(slope)) return Verdict::RecipeNotCalibrated;
  // A special grade is known by its points or by a calibration; as it leaves the factory it has neither.
  if (pulp != "pulpTypeSpecialGrade" || slope != 1 || mTable.number(recipeName(recipe, "LinearizationOffsetP2"), 0) != 0) return Verdict::Accepted;
  for (int point = 0; point < 16; ++point)
    if (mTable.number(pointName("consistencyOffset", point), 0) != 0) return Verdict::Accepted;
  return Verdict::RecipeNotCalibrated;
}

Verdict BladeCurve::verdictOnSpecialGrade() const {
  const auto at = [&](int point) { return mTable.number(pointName("consistencyValue", point), 0); };
  for (int point = 1; point < 16; ++point)
    if (at(point) <= at(point - 1)) return Verdict::SpecialGradePointInvalid;
  return Verdict::Accepted;
}

}  // namespace ostrand::simulator
