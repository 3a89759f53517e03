#pragma once

#include <string>

#include "core/Requests.h"

// The requests of a loop test, and the rules by which an answer ends it.
namespace ostrand::LoopTest {

// Of the one output, and of several channels.
inline std::string outputRequest(const std::string& item) { return Requests::fragment("loopTest", "write", item); }
inline std::string channelsRequest(const std::string& items) { return Requests::document("loopTest", "write", items); }

// Exactly 0: any other value, however small, drives the output.
inline bool outputIsFree(double answered) { return answered == 0.0; }
// The values of channels arrive as floats: up to here a channel has stopped.
inline bool channelIsFree(double answered) { return answered <= 0.1; }

}  // namespace ostrand::LoopTest
