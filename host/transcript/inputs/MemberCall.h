#pragma once

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// What code does with the members of controls and components, where no user's action reaches.
namespace ostrand::inputs {

void call(TranscriptStage& stage, const TranscriptInput& input);
void set(TranscriptStage& stage, const TranscriptInput& input);

}  // namespace ostrand::inputs
