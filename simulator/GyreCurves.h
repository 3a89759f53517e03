#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace ostrand::simulator {

// What a torque means: a cubic between two torques, straight lines beyond them if the maker gives any.
struct GyreCurve {
  struct Lines {
    double belowSlope, belowOffset, aboveSlope, aboveOffset;
  };

  static constexpr double kHighestTorque = 1.5;  // Nm, that the sensor is made for

  std::array<double, 4> factors = {};  // of torque to the power of 0, 1, 2 and 3
  double lowest = 0;                   // Nm, where the cubic begins
  double highest = kHighestTorque;     // Nm, where it ends
  std::optional<Lines> lines = {};

  // %Cs of a torque in Nm, and back. The second takes the curve for one that rises.
  double consistency(double torque) const;
  double torque(double consistency) const;
};

// A curve as the maker ships it: for a sensor type and a pulp type, from a revision of the software on. A revision is a number
// or a letter, which counts by its character code; an empty one is 0.
struct GyreCurveRow {
  std::string_view sensorType, revision, pulpType;
  GyreCurve curve;
};

std::span<const GyreCurveRow> gyreCurves();
// The newest curve that is not newer than the software, or the only one that there is; nothing for a pair without a curve.
const GyreCurve* gyreCurve(std::string_view sensorType, std::string_view pulpType, int software);
// That of the pulp that most mills have, for whoever has none of his own.
const GyreCurve& generalGyreCurve();

// "1.67" is 67: what stands behind the first point counts, of a letter its character code. 0 for what is neither.
int minorRevision(std::string_view revision);

}  // namespace ostrand::simulator
