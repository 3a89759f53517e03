#pragma once

#include <string>

#include "platform/base/Locale.h"
#include "platform/types/Messenger.h"
#include "platform/xml/Document.h"

namespace ostrand {

// Warns when the answer carries this sample's deviation and its mean consistency, and the deviation is more
// than 5.0 per cent of it. `sample` is "sample1" or "sample2". Throws what it cannot read.
void warnOfLargeDeviation(const Document& answer, const std::string& sample, const Locale& locale, Messenger& messenger);

// Tells the user that a request named `name` has come to its end.
void showWhenFinal(const Document& answer, const std::string& name, const std::string& message, Messenger& messenger);

}  // namespace ostrand
