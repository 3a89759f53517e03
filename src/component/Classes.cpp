#include "component/Classes.h"

#include "anyedit/CtrAnyEdit.h"
#include "calibration/VwCalibration.h"
#include "calibration/VwCalibrationFjell.h"
#include "diagnostics/VwDiagnostics.h"
#include "diagnostics/VwDiagnosticsQX5.h"
#include "recipe/CtrRecipe.h"
#include "views/CtrDeviceSpecifcFjell.h"
#include "views/CtrDeviceSpecific.h"
#include "views/CtrDeviceSpecificGYRE.h"
#include "views/CtrDeviceSpecificQX5.h"
#include "views/VwInformationGYREP.h"
#include "views/VwInformationH.h"
#include "views/VwInformationP.h"
#include "views/VwInformationP2.h"
#include "views/VwInformationQX5.h"
#include "views/VwMeasurement.h"
#include "views/VwMeasurementGYRE.h"
#include "views/VwMeasurementQX5.h"
#include "views/VwOperation.h"

namespace ostrand {

namespace {

template <class T>
Component* make() {
  return new T;
}

#define OSTRAND_CLASS(type, id, description) \
  ComponentClass { #type, Guid::of(id), &make < type>, description }

// clang-format off
const ComponentClass kClasses[] = {
    OSTRAND_CLASS(VwMeasurement,      "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2101", "Blade transmitters: live values and active recipe"),
    OSTRAND_CLASS(VwMeasurementGYRE,  "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2102", "GYRE transmitters: live values and active recipe"),
    OSTRAND_CLASS(VwMeasurementQX5,   "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2103", "Optical transmitter: live values and active grade"),
    OSTRAND_CLASS(VwInformationP,     "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2106", "PROFIBUS blade transmitters: identification and transmitter data"),
    OSTRAND_CLASS(VwInformationH,     "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2107", "HART blade transmitters: identification and transmitter data"),
    OSTRAND_CLASS(VwInformationP2,    "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2108", "PROFIBUS blade, second form: identification and transmitter data"),
    OSTRAND_CLASS(VwInformationQX5,   "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2109", "Optical transmitter: identification and transmitter data"),
    OSTRAND_CLASS(VwInformationGYREP, "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210a", "PROFIBUS GYRE transmitters: identification and transmitter data"),
    OSTRAND_CLASS(VwCalibration,      "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2104", "Blade transmitters: samples, laboratory calibration, recipes"),
    OSTRAND_CLASS(VwCalibrationFjell, "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2105", "Low-consistency blade: samples, laboratory calibration, recipes"),
    OSTRAND_CLASS(VwDiagnostics,      "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210b", "Single-channel devices: status tree, loop test, event logs"),
    OSTRAND_CLASS(VwOperation,        "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210d", "PROFIBUS devices: simulation of the measured value, function modules"),
    OSTRAND_CLASS(VwDiagnosticsQX5,   "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210c", "Optical transmitter: loop test of channels, sensors, status tree"),
    OSTRAND_CLASS(CtrDeviceSpecific,     "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210e", "Blade transmitters: the device's picture and its mark"),
    OSTRAND_CLASS(CtrDeviceSpecifcFjell, "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e210f", "Low-consistency blade: the device's picture and its mark"),
    OSTRAND_CLASS(CtrDeviceSpecificGYRE, "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2110", "GYRE transmitters: the device's picture and its mark"),
    OSTRAND_CLASS(CtrDeviceSpecificQX5,  "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2111", "Optical transmitter: the device's picture and its mark"),
    OSTRAND_CLASS(CtrAnyEdit,            "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2112", "One editor behind many values"),
    OSTRAND_CLASS(CtrRecipe,             "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2113", "GYRE transmitters: one recipe, its curve, its samples and its chart"),
};
// clang-format on

#undef OSTRAND_CLASS

}  // namespace

std::span<const ComponentClass> componentClasses() { return kClasses; }

}  // namespace ostrand
