#pragma once

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// The life of a view: the host makes it, hands it what it needs, and ends it.
namespace ostrand::inputs {

void create(TranscriptStage& stage, const TranscriptInput& input);
void view(TranscriptStage& stage, const TranscriptInput& input);
void messenger(TranscriptStage& stage, const TranscriptInput& input);
void localize(TranscriptStage& stage, const TranscriptInput& input);
void select(TranscriptStage& stage, const TranscriptInput& input);
void focus(TranscriptStage& stage, const TranscriptInput& input);
void leave(TranscriptStage& stage, const TranscriptInput& input);
void handIn(TranscriptStage& stage, const TranscriptInput& input);
void release(TranscriptStage& stage, const TranscriptInput& input);
void terminate(TranscriptStage& stage, const TranscriptInput& input);
void resize(TranscriptStage& stage, const TranscriptInput& input);

}  // namespace ostrand::inputs
