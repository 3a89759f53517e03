#pragma once

#include <array>
#include <string>

#include "platform/base/Locale.h"
#include "platform/xml/Document.h"

namespace ostrand {

using Coefficients = std::array<float, 4>;  // c0 to c3 of a cubic, from torque in Nm to consistency in %Cs

// What a transmitter reads from its torque before P1 and P2: a cubic, and a straight line at each end of its range where
// the relations know one.
struct BaseCurve {
  static constexpr float kUnset = -99999.0f;  // the null value of the charts too

  Coefficients coefficients{};
  float minTorque = 0.0f;  // the range of the cubic, in Nm
  float maxTorque = 1.5f;
  float maxConsistency = 0.0f;
  float minA = kUnset, minB = kUnset;  // below the range: a * torque + b
  float maxA = kUnset, maxB = kUnset;  // above the range

  bool hasEndLines() const { return minA != kUnset && minB != kUnset && maxA != kUnset && maxB != kUnset; }
  // The range of a typed polynome: all of the axis, no end lines. The rest keeps its values.
  void takeWholeRange();
};

// The element of the host's tree document whose curve serves this sensor, pulp and revision, or nothing. A match alone is
// taken whatever its revision. Among several it is the newest that is not newer than the device, and the first of equals;
// a device of unknown revision (below 0) then gets none. A quote in a name and an empty revision are error 5, an absent one
// counts as 0.
Node chooseBaseCurve(const Document& tree, const std::string& sensorType, const std::string& pulpType, int swRevision);

// The key of the message in place of a curve, or an empty text: a pulp that a known sensor and revision do not have gives
// no curve and no message.
const char* messageWithoutCurve(const std::string& sensorType, const std::string& pulpType, int swRevision);

// The numbers of such an element, in two steps, since the axis is set between them: the cubic, its range and maxConsistency;
// then the end lines. A missing attribute is error 91, a wrong one 13, one too large 6; what was read before it stays.
void readCubic(const Node& node, const Locale& locale, BaseCurve& curve);
void readEndLines(const Node& node, const Locale& locale, BaseCurve& curve);

}  // namespace ostrand
