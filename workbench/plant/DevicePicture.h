#pragma once

#include <QPixmap>

#include "platform/types/ITaviDeviceSpecific.h"
#include "workbench/render/Theme.h"

namespace ostrand {

// A picture of the device family as pixels of this height; a pipe with a transmitter on it, drawn in the theme's colours,
// where the family has none.
QPixmap devicePixmap(const Picture& picture, const Theme& theme, int height, double pixelRatio);
// Nothing where there is no logo.
QPixmap logoPixmap(const Picture& picture, int height, double pixelRatio);

}  // namespace ostrand
