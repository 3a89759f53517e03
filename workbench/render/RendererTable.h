#pragma once

#include <memory>

#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// The renderer for a control by its class name or else by its kind. One that nobody has written yet gets a renderer without a
// display.
std::unique_ptr<ControlRenderer> makeRenderer(FormPage& page, Control& control);

}  // namespace ostrand
