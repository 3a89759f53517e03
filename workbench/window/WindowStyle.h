#pragma once

#include <QString>

#include "workbench/render/Theme.h"

namespace ostrand {

// What the window adds to the theme's style sheet: menus, tool bar, plant tree, header, conversation, status line.
QString windowStyle(const Theme& theme);

}  // namespace ostrand
