#pragma once

#include <QString>

#include "workbench/plant/PlantDevice.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// Why the user cannot use a control of this device's view now; empty if nobody knows.
QString whyDisabled(const Control& control, PlantDevice& device, const Texts& texts);

}  // namespace ostrand
