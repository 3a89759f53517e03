#pragma once

#include <QObject>

#include "workbench/words/Texts.h"

namespace ostrand {

// Gives a property of a part of the window ("text", "title", "toolTip") one of the window's own words, in English until the
// user's language is known.
void speak(QObject& part, const char* property, const char* english);
// All parts below a window in the user's language.
void speakAnew(QObject& window, const Texts& texts);

}  // namespace ostrand
