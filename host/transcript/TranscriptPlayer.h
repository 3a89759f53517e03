#pragma once

#include <filesystem>
#include <vector>

#include "host/transcript/TranscriptComparison.h"
#include "host/transcript/TranscriptStage.h"

namespace ostrand {

// Plays a transcript: carries out its inputs on views that it creates, and collects what they put out. One player plays one
// transcript, on a virtual clock.
//
// - An event of the host (mode, receive, units, changes) reaches every view that listens, in the order of their creation.
// - An input that cannot be carried out is put out as `Rejected`, and the transcript goes on.
// - At the end the views that are left are terminated, in silence.
class TranscriptPlayer {
 public:
  // `data` is the data folder. The components must outlive the player.
  TranscriptPlayer(ComponentSource& components, const std::filesystem::path& data);

  // RuntimeError 5 "FILE:LINE: what is wrong" for an input that no player can understand; then nothing has been played.
  // Gives a block for each block of the transcript.
  std::vector<PlayedBlock> play(const Transcript& transcript);

 private:
  void carryOut(const TranscriptInput& input);

  TranscriptStage mStage;
};

}  // namespace ostrand
