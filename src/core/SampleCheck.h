#pragma once

#include <functional>
#include <string>

#include "platform/base/Locale.h"
#include "platform/types/Messenger.h"
#include "platform/xml/Document.h"

// What an answer says of a sample and of the calibration that follows it, the same on both buses.
namespace ostrand {

inline constexpr const char* kCalibrated = "calibrationWasSuccessfullPleaseUpdateRecipesView";

// The float value of an item; error 91 if it has none, 13 if it is no number.
double floatOf(const Node& item, const Locale& locale);

// Warns when the answer carries this sample's deviation and its mean consistency, and the deviation is more
// than 5.0 per cent of it. `sample` is "sample1" or "sample2". `read` gives the value of an item: what it
// throws ends the check, a 0 in place of what cannot be read goes on without a warning.
void warnOfLargeDeviation(const Document& answer, const std::string& sample, const std::function<double(const Node& item)>& read,
                          Messenger& messenger);

// Tells the user that a request named `name` has come to its end.
void showWhenFinal(const Document& answer, const std::string& name, const std::string& message, Messenger& messenger);

}  // namespace ostrand
