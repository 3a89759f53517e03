#pragma once

#include <QPixmap>
#include <QString>
#include <optional>

#include "platform/controls/Ne107.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// How a device's signal is shown; nothing stands for a device of which nobody knows. Each has its own shape and colour, so
// that neither is needed alone.
using DeviceSignal = std::optional<Ne107>;

// "F", "C", "S", "M"; empty for the two others.
QString signalLetter(DeviceSignal signal);
QString signalWord(DeviceSignal signal, const Texts& texts);
QPixmap signalSymbol(DeviceSignal signal, int size, double pixelRatio);

}  // namespace ostrand
