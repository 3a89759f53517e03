#include "workbench/plant/ViewClasses.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

struct Row {
  std::string_view family;
  std::string_view bus;
  std::array<std::string_view, 9> classes;  // as kColumns
};

constexpr std::string_view kPictures = "pictures";
constexpr std::string_view kDigits = "0123456789";

// clang-format off
constexpr std::array<std::string_view, 9> kColumns =
                   { "measurement",       "information",        "configuration",        "operation",   "calibration",        "recipe",    "advanced",         "diagnostics",      kPictures };
constexpr Row kRows[] = {
  {"blade", "HART", {"VwMeasurement",     "VwInformationH",     "VwConfigurationH",     "",            "VwCalibration",      "",          "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecific"}},
  {"blade", "DPV1", {"VwMeasurement",     "VwInformationP",     "VwConfigurationP",     "VwOperation", "VwCalibration",      "",          "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecific"}},
  {"fjell", "HART", {"VwMeasurement",     "VwInformationH",     "VwConfigurationFjell", "",            "VwCalibrationFjell", "",          "VwAdvancedFjell",  "VwDiagnostics",    "CtrDeviceSpecifcFjell"}},
  {"gyre",  "HART", {"VwMeasurementGYRE", "VwInformationH",     "VwConfigurationGYRE",  "",            "VwCalibrationGYRE",  "CtrRecipe", "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecificGYRE"}},
  {"gyre",  "DPV1", {"VwMeasurementGYRE", "VwInformationGYREP", "VwConfigurationGYRE",  "VwOperation", "VwCalibrationGYREP", "",          "VwAdvancedGYREP",  "VwDiagnostics",    "CtrDeviceSpecificGYRE"}},
  {"qx5",   "HART", {"VwMeasurementQX5",  "VwInformationQX5",   "VwConfigurationQX5",   "",            "VwCalibration",      "",          "VwAdvanced",       "VwDiagnosticsQX5", "CtrDeviceSpecificQX5"}},
};
// clang-format on

}  // namespace

std::string_view ViewClasses::of(std::string_view branch) const {
  // Of things that a device has several of, each branch bears its number.
  const std::string_view column = branch.substr(0, branch.find_last_not_of(kDigits) + 1);
  for (const Row& row : kRows) {
    if (row.family != family || row.bus != bus) continue;
    const auto found = std::find(kColumns.begin(), kColumns.end(), column);
    if (found != kColumns.end()) return row.classes[static_cast<std::size_t>(found - kColumns.begin())];
  }
  return {};
}

std::string_view ViewClasses::pictures() const { return of(kPictures); }

}  // namespace ostrand
