#pragma once

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// What is looked at: controls, documents, files, pictures.
namespace ostrand::inputs {

void get(TranscriptStage& stage, const TranscriptInput& input);
void front(TranscriptStage& stage, const TranscriptInput& input);
void selected(TranscriptStage& stage, const TranscriptInput& input);
void focused(TranscriptStage& stage, const TranscriptInput& input);
void show(TranscriptStage& stage, const TranscriptInput& input);
void chart(TranscriptStage& stage, const TranscriptInput& input);
void document(TranscriptStage& stage, const TranscriptInput& input);
void file(TranscriptStage& stage, const TranscriptInput& input);
void now(TranscriptStage& stage, const TranscriptInput& input);
void picture(TranscriptStage& stage, const TranscriptInput& input);

}  // namespace ostrand::inputs
