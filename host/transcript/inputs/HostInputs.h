#pragma once

#include <optional>

#include "host/transcript/Transcript.h"

namespace ostrand {
class TranscriptStage;
}

// What the host does by itself or is to answer, and what becomes of its calls.
namespace ostrand::inputs {

void level(TranscriptStage& stage, const TranscriptInput& input);
void mode(TranscriptStage& stage, const TranscriptInput& input);
void receive(TranscriptStage& stage, const TranscriptInput& input);
void unit(TranscriptStage& stage, const TranscriptInput& input);
void units(TranscriptStage& stage, const TranscriptInput& input);
void changes(TranscriptStage& stage, const TranscriptInput& input);
void answer(TranscriptStage& stage, const TranscriptInput& input);
void accept(TranscriptStage& stage, const TranscriptInput& input);
void fail(TranscriptStage& stage, const TranscriptInput& input);
void during(TranscriptStage& stage, const TranscriptInput& input);
void parent(TranscriptStage& stage, const TranscriptInput& input);
void maximize(TranscriptStage& stage, const TranscriptInput& input);
void address(TranscriptStage& stage, const TranscriptInput& input);
void tree(TranscriptStage& stage, const TranscriptInput& input);
void relations(TranscriptStage& stage, const TranscriptInput& input);
void dialog(TranscriptStage& stage, const TranscriptInput& input);
void locale(TranscriptStage& stage, const TranscriptInput& input);
void advance(TranscriptStage& stage, const TranscriptInput& input);
void device(TranscriptStage& stage, const TranscriptInput& input);
void run(TranscriptStage& stage, const TranscriptInput& input);
void fault(TranscriptStage& stage, const TranscriptInput& input);

// "seed=7"; nothing for any other word.
std::optional<unsigned> seedOf(const TranscriptWord& word);

}  // namespace ostrand::inputs
