#pragma once

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// Which outputs a transcript prints and compares.
namespace ostrand::inputs {

void trace(TranscriptStage& stage, const TranscriptInput& input);
void ignore(TranscriptStage& stage, const TranscriptInput& input);
void heed(TranscriptStage& stage, const TranscriptInput& input);

}  // namespace ostrand::inputs
