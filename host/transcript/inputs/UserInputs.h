#pragma once

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// What the user does to controls.
namespace ostrand::inputs {

void click(TranscriptStage& stage, const TranscriptInput& input);
void type(TranscriptStage& stage, const TranscriptInput& input);
void choose(TranscriptStage& stage, const TranscriptInput& input);
void check(TranscriptStage& stage, const TranscriptInput& input);
void edit(TranscriptStage& stage, const TranscriptInput& input);
void slide(TranscriptStage& stage, const TranscriptInput& input);
void leaveField(TranscriptStage& stage, const TranscriptInput& input);
void hotspot(TranscriptStage& stage, const TranscriptInput& input);
void menu(TranscriptStage& stage, const TranscriptInput& input);

}  // namespace ostrand::inputs
