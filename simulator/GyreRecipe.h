#pragma once

#include "simulator/GyreCurves.h"
#include "simulator/ParameterTable.h"

namespace ostrand::simulator {

class GyreHistory;

// What a GYRE transmitter makes of a torque by one of its recipes:
//   consistency = (slope P1 * curve(torque) + offset P2) / (1 - filler)
// as the recipe stands in its memory. The torque is that of the pulp alone, without that of the water.
struct GyreRecipe {
  GyreCurve curve;
  double slope, offset;  // P1; P2 in %Cs
  double filler;         // part of the consistency
  bool isCalibrated;     // whether one can measure by it; else the curve is the general one

  static int active(const ParameterTable& table);
  static GyreRecipe of(int recipe, const ParameterTable& table, const GyreHistory& history);
  // The curve of a pulp in this transmitter, with its sensor and its software; nothing if there is none.
  static const GyreCurve* curveOfPulp(std::string_view pulpType, const ParameterTable& table);

  // %Cs; the first is what slope and offset are applied to.
  double uncompensated(double torque) const { return curve.consistency(torque); }
  double reading(double torque) const { return (slope * uncompensated(torque) + offset) / (1 - filler); }
};

}  // namespace ostrand::simulator
