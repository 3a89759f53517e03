#pragma once

#include <string_view>

#include "simulator/Blade.h"
#include "simulator/ParameterTable.h"
#include "simulator/Transmitter.h"

namespace ostrand::simulator {

// What a blade transmitter makes of a force:
//   consistency = slope * (force by blade and pulp type, corrected for filler and special grade) + offset,
// by the recipes that stand in its memory.
class BladeCurve {
 public:
  // `builtIn` is the key of the blade where the memory has no `bladeType`.
  BladeCurve(const ParameterTable& table, std::string_view builtIn) : mTable(table), mBuiltIn(builtIn) {}

  const Blade& blade() const { return Blade::of(mTable.find("bladeType") ? mTable.key("bladeType") : mBuiltIn); }
  int activeRecipe() const;
  // %Cs of a force in N. `linearInput` is what slope and offset of the recipe are applied to.
  double linearInput(int recipe, double shearForce) const;
  double reading(int recipe, double shearForce) const;

  // Whether one can measure by the recipe.
  Verdict verdictOnRecipe(int recipe) const;
  // The values of the points must rise.
  Verdict verdictOnSpecialGrade() const;

 private:
  double specialGradeOffset(double consistency) const;

  const ParameterTable& mTable;
  std::string_view mBuiltIn;
};

}  // namespace ostrand::simulator
