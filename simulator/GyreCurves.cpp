#include "simulator/GyreCurves.h"

#include <algorithm>

#include "platform/base/NumberText.h"

namespace ostrand::simulator {

namespace {

// clang-format off
constexpr GyreCurveRow kCurves[] = {
    {"GYRE-S", "1", "pulpTypeBleachedSoftwood", {{0.1626, 12.0872, -5.9081, 1.6208}, 0, 1.5, {}}},
    {"GYRE-S", "1", "pulpTypeUnbleachedSoftwood", {{0.1423, 11.337, -5.3539, 1.4658}, 0, 1.5, {}}},
    {"GYRE-S", "1", "pulpTypeBleachedHardwood", {{0.2417, 14.6988, -7.8012, 2.1679}, 0, 1.5, {}}},
    {"GYRE-S", "1", "pulpTypeTmp", {{0.2509, 14.9889, -7.6241, 2.1716}, 0, 1.5, {}}},
    {"GYRE-S", "A", "pulpTypeBleachedSoftwood", {{0.2512, 12.2238, -6.3049, 1.9456}, 0.08, 1.2, {{14.8719, 0, 5.497, 2.6063}}}},
    {"GYRE-S", "A", "pulpTypeUnbleachedSoftwood", {{0.2193, 11.4873, -5.7342, 1.7664}, 0.08, 1.2, {{13.7811, 0, 5.3561, 2.3718}}}},
    {"GYRE-S", "A", "pulpTypeBleachedHardwood", {{0.3763, 14.7629, -8.2257, 2.5676}, 0.08, 1.2, {{18.825, 0, 6.1133, 3.3476}}}},
    {"GYRE-S", "A", "pulpTypeUnbleachedHardwood", {{0.3367, 14.007, -7.6981, 2.3882}, 0.08, 1.2, {{17.6152, 0, 5.8486, 3.1683}}}},
    {"GYRE-S", "A", "pulpTypeTmp", {{0.3917, 15.0334, -8.0204, 2.565}, 0.08, 1.2, {{19.3044, 0, 6.8652, 3.0765}}}},
    {"GYRE-S", "A", "pulpTypeCtmp", {{0.3505, 14.2641, -7.5499, 2.3942}, 0.08, 1.2, {{18.0567, 0, 6.4873, 2.948}}}},
    {"GYRE-S", "A", "pulpTypeDeinked", {{0.4749, 16.5001, -9.3397, 2.9658}, 0.08, 1.2, {{21.7082, 0, 6.8971, 3.6742}}}},
    {"GYRE-S", "A", "pulpTypeBroke", {{0.3075, 13.4196, -7.1148, 2.221}, 0.08, 1.2, {{16.7084, 0, 5.9388, 2.877}}}},
    {"GYRE-S", "A", "pulpTypeOcc", {{0.2813, 12.8701, -6.5701, 2.0659}, 0.08, 1.2, {{15.874, 0, 6.0265, 2.6026}}}},
    {"GYRE-S", "A", "pulpTypeULIN", {{0, 66.6667, 0, 0}, 0, 1.5, {}}},
    {"GYRE-S", "B", "pulpTypeTmp", {{0.4004, 15.1929, -8.1281, 2.6022}, 0.08, 1.2, {{19.5643, 0, 6.927, 3.1116}}}},
    {"GYRE-S", "B", "pulpTypeDeinked", {{0.4851, 16.6712, -9.4593, 3.0069}, 0.08, 1.2, {{21.9975, 0, 6.9587, 3.7146}}}},
    {"GYRE-M", "A", "pulpTypeBleachedSoftwood", {{0.3426, 14.1161, -7.5902, 2.3833}, 0.08, 1.2, {{17.8066, 0, 6.1955, 3.0358}}}},
    {"GYRE-M", "A", "pulpTypeBleachedHardwood", {{0.5007, 16.9345, -9.7528, 3.0893}, 0.08, 1.2, {{22.4328, 0, 6.8736, 3.8681}}}},
    {"GYRE-M", "A", "pulpTypeGroundwood", {{0.7109, 20.1423, -11.3658, 3.7497}, 0.08, 1.2, {{28.1433, 0, 9.0631, 4.1187}}}},
    {"GYRE-M", "A", "pulpTypeTmp", {{0.5194, 17.228, -9.5092, 3.0809}, 0.08, 1.2, {{22.9795, 0, 7.7154, 3.5651}}}},
    {"GYRE-M", "A", "pulpTypeDeinked", {{0.6227, 18.8517, -10.9891, 3.5336}, 0.08, 1.2, {{25.7789, 0, 7.743, 4.2349}}}},
    {"GYRE-M", "A", "pulpTypeOcc", {{0.3807, 14.8318, -7.8844, 2.518}, 0.08, 1.2, {{18.9759, 0, 6.787, 3.032}}}},
    {"GYRE-M", "A", "pulpTypeULIN", {{0, 66.6667, 0, 0}, 0, 1.5, {}}},
    {"GYRE-L", "", "pulpTypeBleachedSoftwood", {{0.1237, 10.6013, -4.9603, 1.3366}, 0, 1.5, {}}},
    {"GYRE-L", "", "pulpTypeGroundwood", {{0.2763, 15.7433, -8.0196, 2.3093}, 0, 1.5, {}}},
    {"GYRE-L", "", "pulpTypeTmp", {{0.1953, 13.2263, -6.4802, 1.8202}, 0, 1.5, {}}},
    {"GYRE-L", "", "pulpTypeOcc", {{0.1388, 11.2035, -5.1968, 1.4302}, 0, 1.5, {}}},
};
// clang-format on

int revisionCode(std::string_view revision) {
  if (!revision.empty() && revision.front() >= 'A') return revision.front();
  const auto number = parseNumber(revision, '.');
  return number && *number >= 0 && *number < 1000 ? static_cast<int>(*number) : 0;
}

}  // namespace

double GyreCurve::consistency(double torque) const {
  const double t = std::max(0.0, torque);
  if (lines && t < lowest) return lines->belowSlope * t + lines->belowOffset;
  if (lines && t > highest) return lines->aboveSlope * t + lines->aboveOffset;
  return factors[0] + t * (factors[1] + t * (factors[2] + t * factors[3]));
}

double GyreCurve::torque(double wanted) const {
  double low = 0;
  double high = 2 * kHighestTorque;
  for (int halving = 0; halving < 40; ++halving) {
    const double middle = (low + high) / 2;
    (consistency(middle) < wanted ? low : high) = middle;
  }
  return low;
}

std::span<const GyreCurveRow> gyreCurves() { return kCurves; }

const GyreCurve* gyreCurve(std::string_view sensorType, std::string_view pulpType, int software) {
  const GyreCurveRow* best = nullptr;
  const GyreCurveRow* only = nullptr;
  int count = 0;
  for (const GyreCurveRow& row : kCurves) {
    if (row.sensorType != sensorType || row.pulpType != pulpType) continue;
    only = &row;
    ++count;
    const int revision = revisionCode(row.revision);
    if (revision <= software && (!best || revision > revisionCode(best->revision))) best = &row;
  }
  if (count == 1) best = only;
  return best ? &best->curve : nullptr;
}

const GyreCurve& generalGyreCurve() { return *gyreCurve("GYRE-S", "pulpTypeBleachedSoftwood", 'A'); }

int minorRevision(std::string_view revision) { return revisionCode(revision.substr(revision.find('.') + 1)); }

}  // namespace ostrand::simulator
