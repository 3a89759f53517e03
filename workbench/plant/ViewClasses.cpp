#include "workbench/plant/ViewClasses.h"

#include <array>

namespace ostrand {

namespace {

struct Row {
  std::string_view family;
  std::string_view bus;
  std::array<std::string_view, 8> classes;  // as kColumns
};

constexpr std::string_view kPictures = "pictures";

// clang-format off
constexpr std::array<std::string_view, 8> kColumns =
                   { "measurement",       "information",        "configuration",        "operation",   "calibration",        "advanced",         "diagnostics",      kPictures };
constexpr Row kRows[] = {
  {"blade", "HART", {"VwMeasurement",     "VwInformationH",     "VwConfigurationH",     "",            "VwCalibration",      "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecific"}},
  {"blade", "DPV1", {"VwMeasurement",     "VwInformationP",     "VwConfigurationP",     "VwOperation", "VwCalibration",      "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecific"}},
  {"fjell", "HART", {"VwMeasurement",     "VwInformationH",     "VwConfigurationFjell", "",            "VwCalibrationFjell", "VwAdvancedFjell",  "VwDiagnostics",    "CtrDeviceSpecifcFjell"}},
  {"gyre",  "HART", {"VwMeasurementGYRE", "VwInformationH",     "VwConfigurationGYRE",  "",            "VwCalibrationGYRE",  "VwAdvanced",       "VwDiagnostics",    "CtrDeviceSpecificGYRE"}},
  {"gyre",  "DPV1", {"VwMeasurementGYRE", "VwInformationGYREP", "VwConfigurationGYRE",  "VwOperation", "VwCalibrationGYREP", "VwAdvancedGYREP",  "VwDiagnostics",    "CtrDeviceSpecificGYRE"}},
  {"qx5",   "HART", {"VwMeasurementQX5",  "VwInformationQX5",   "VwConfigurationQX5",   "",            "VwCalibration",      "VwAdvanced",       "VwDiagnosticsQX5", "CtrDeviceSpecificQX5"}},
};
// clang-format on

}  // namespace

std::string_view ViewClasses::of(std::string_view branch) const {
  for (const Row& row : kRows) {
    if (row.family != family || row.bus != bus) continue;
    for (std::size_t column = 0; column < kColumns.size(); ++column)
      if (kColumns[column] == branch) return row.classes[column];
  }
  return {};
}

std::string_view ViewClasses::pictures() const { return of(kPictures); }

}  // namespace ostrand
