#pragma once

#include <gtest/gtest.h>

#include "host/HostBench.h"
#include "host/transcript/PlayerBench.h"

namespace ostrand::test {

// Plays transcripts on the test components, which must all be gone after it.
class PlayerTest : public testing::Test {
 protected:
  // Plays the inputs of a text and expects its outputs.
  void expectPlayed(const std::string& text) {
    const Transcript transcript = Transcript::parse(text, "played");
    TranscriptPlayer player(components, sourceData());
    const TranscriptComparison comparison(transcript, player.play(transcript));
    EXPECT_EQ(comparison.diff(), "");
  }
  // The same behind the start of a view that logs to the host.
  void expectPlayedOnView(const std::string& text) { expectPlayed("> create TestPanel\n> messenger\n" + text); }

  std::string refused(const std::string& input) {
    const Transcript transcript = Transcript::parse("> create TestPanel\n> " + input + "\n", "file");
    return refusalOf([&] { TranscriptPlayer(components, sourceData()).play(transcript); }).description;
  }

  void TearDown() override { EXPECT_EQ(TestView::ended, endedBefore + made) << "a view is still alive"; }

  TestComponents components;
  int endedBefore = TestView::ended;
  int& made = components.made;
};

}  // namespace ostrand::test
