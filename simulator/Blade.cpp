#include "simulator/Blade.h"

#include <algorithm>
#include <cmath>

namespace ostrand::simulator {

namespace {

constexpr Blade kGeneral = {"", 6.8, ""};

// clang-format off
constexpr Blade kBlades[] = {
    {"bladeTypeGS", 6.8, "pulpTypeBleachedSoftwood pulpTypeUnbleachedSoftwood pulpTypeBleachedHardwood pulpTypeUnbleachedHardwood "
                         "pulpTypeTmp pulpTypeCtmp pulpTypeDeinked pulpTypeSpecialGrade "},
    {"bladeTypeGL", 9.2, ""},
    {"bladeTypeHS", 4.1, "pulpTypeBleachedSoftwood pulpTypeUnbleachedSoftwood pulpTypeBleachedHardwood pulpTypeUnbleachedHardwood "
                         "pulpTypeTmp pulpTypeCtmp pulpTypeSpecialGrade "},
    {"bladeTypeHL", 5.6, "pulpTypeBleachedSoftwood pulpTypeUnbleachedSoftwood pulpTypeBleachedHardwood pulpTypeUnbleachedHardwood "
                         "pulpTypeTmp pulpTypeCtmp pulpTypeSpecialGrade "},
    {"bladeTypeWS", 8.0, "pulpTypeDeinked pulpTypeBroke pulpTypeSpecialGrade "},
    {"bladeTypeRL", 10.5, "pulpTypeGroundwood pulpTypeTmp pulpTypeCtmp pulpTypeDeinked pulpTypeBroke pulpTypeSpecialGrade "},
    {"bladeTypeLowConsistency", 21.0, ""},
    {"bladeTypeRM", 7.7, "pulpTypeGroundwood pulpTypeTmp pulpTypeCtmp pulpTypeDeinked pulpTypeBroke pulpTypeSpecialGrade "},
};

struct PulpType {
  std::string_view key;
  double factor;
};

constexpr PulpType kPulpTypes[] = {
    {"pulpTypeBleachedSoftwood",   1.00},
    {"pulpTypeUnbleachedSoftwood", 1.06},
    {"pulpTypeBleachedHardwood",   0.84},
    {"pulpTypeUnbleachedHardwood", 0.88},
    {"pulpTypeGroundwood",         0.66},
    {"pulpTypeTmp",                0.78},
    {"pulpTypeCtmp",               0.81},
    {"pulpTypeDeinked",            0.86},
    {"pulpTypeBroke",              0.90},
    {"pulpTypeSpecialGrade",       1.00},
};
// clang-format on

// The force grows a little faster than the consistency.
constexpr double kCurvature = 0.02;

}  // namespace

const Blade& Blade::of(std::string_view key) {
  const auto blade = std::find_if(std::begin(kBlades), std::end(kBlades), [&](const Blade& b) { return b.key == key; });
  return blade == std::end(kBlades) ? kGeneral : *blade;
}

bool Blade::allows(std::string_view pulpType) const {
  if (pulpTypes.empty()) return true;
  const std::size_t at = pulpTypes.find(pulpType);
  return !pulpType.empty() && at != pulpTypes.npos && pulpTypes[at + pulpType.size()] == ' ';
}

double Blade::shearForce(double consistency, double factor) const {
  return newtonsPerPercent * factor * (consistency + kCurvature * consistency * consistency);
}

double Blade::consistency(double shearForce, double factor) const {
  const double straight = std::max(0.0, shearForce) / (newtonsPerPercent * factor);
  return (std::sqrt(1 + 4 * kCurvature * straight) - 1) / (2 * kCurvature);
}

double pulpFactor(std::string_view pulpType) {
  const auto pulp = std::find_if(std::begin(kPulpTypes), std::end(kPulpTypes), [&](const PulpType& p) { return p.key == pulpType; });
  return pulp == std::end(kPulpTypes) ? 1.0 : pulp->factor;
}

}  // namespace ostrand::simulator
