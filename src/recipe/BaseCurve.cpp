#include "recipe/BaseCurve.h"

#include "core/modTools.h"
#include "platform/base/RuntimeError.h"
#include "recipe/Single.h"

namespace ostrand {

namespace {

// A digit counts as itself, a letter as its code: every letter is newer than every digit. No more than the first
// character is looked at.
int revisionOf(const Node& sensor) {
  const auto revision = sensor.findAttribute("revision");
  if (!revision) return 0;
  if (revision->empty()) throw RuntimeError(RuntimeError::BadArgument, "the revision of a curve is empty");
  const int code = static_cast<unsigned char>(revision->front());
  return code >= 'A' ? code : code - '0';
}

void readSingle(const Node& node, const char* attribute, const Locale& locale, float& field) {
  field = toSingle(modTools::ToLocalNumber(node.attribute(attribute), locale));
}

}  // namespace

void BaseCurve::takeWholeRange() {
  minTorque = 0.0f;
  maxTorque = 1.5f;
  minA = minB = maxA = maxB = kUnset;
}

Node chooseBaseCurve(const Document& tree, const std::string& sensorType, const std::string& pulpType, int swRevision) {
  const auto matches = tree.selectAll("/dtm/relations/parameterA[@value=\"" + sensorType + "\"]/parameterB[@value=\"" + pulpType + "\"]");
  if (matches.size() == 1) return matches.front();
  Node chosen;
  if (swRevision < 0) return chosen;
  int nearest = 1000;  // no revision is so far away
  for (const Node& node : matches) {
    const int distance = swRevision - revisionOf(node.parent());
    if (distance < 0 || distance >= nearest) continue;
    chosen = node;
    nearest = distance;
  }
  return chosen;
}

const char* messageWithoutCurve(const std::string& sensorType, const std::string& pulpType, int swRevision) {
  if (pulpType.empty()) return "";
  if (sensorType.empty()) return "|c#sensorType#undefined";
  return swRevision < 0 ? "|c#swRevision#undefined" : "";
}

void readCubic(const Node& node, const Locale& locale, BaseCurve& curve) {
  constexpr const char* kCoefficients[] = {"x0", "x1", "x2", "x3"};
  for (std::size_t power = 0; power < curve.coefficients.size(); ++power) readSingle(node, kCoefficients[power], locale, curve.coefficients[power]);
  readSingle(node, "min", locale, curve.minTorque);
  readSingle(node, "max", locale, curve.maxTorque);
  readSingle(node, "maxC", locale, curve.maxConsistency);
}

void readEndLines(const Node& node, const Locale& locale, BaseCurve& curve) {
  readSingle(node, "minA", locale, curve.minA);
  readSingle(node, "minB", locale, curve.minB);
  readSingle(node, "maxA", locale, curve.maxA);
  readSingle(node, "maxB", locale, curve.maxB);
}

}  // namespace ostrand
