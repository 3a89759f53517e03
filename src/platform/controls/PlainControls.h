#pragma once

// The plain controls of the layout: no value of the device stands behind them.

#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Slider.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
