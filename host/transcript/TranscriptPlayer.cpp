#include "host/transcript/TranscriptPlayer.h"

#include "host/transcript/TranscriptCommands.h"

namespace ostrand {

TranscriptPlayer::TranscriptPlayer(ComponentSource& components, const std::filesystem::path& data)
    : mStage(components, data, [this](const TranscriptInput& input) { carryOut(input); }) {}

std::vector<PlayedBlock> TranscriptPlayer::play(const Transcript& transcript) {
  for (const Transcript::Block& block : transcript.blocks())
    if (block.input)
      if (const std::string wrong = complaintAbout(*block.input); !wrong.empty()) transcript.malformed(block.input->first, wrong);

  mStage.files.playedFrom(transcript.file());
  std::vector<PlayedBlock> played;
  for (const Transcript::Block& block : transcript.blocks()) {
    if (block.input) carryOut(*block.input);
    played.push_back({mStage.output.take(), mStage.output.heeded});
  }
  mStage.end();
  return played;
}

void TranscriptPlayer::carryOut(const TranscriptInput& input) {
  try {
    findCommand(input.command())->carryOut(mStage, input);
  } catch (const TranscriptStage::InputEnded&) {
    // It has told why.
  } catch (...) {
    mStage.output.print("Rejected", currentError().description);
  }
}

}  // namespace ostrand
