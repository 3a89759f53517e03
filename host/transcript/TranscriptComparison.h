#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/transcript/HeededCalls.h"
#include "host/transcript/Transcript.h"

namespace ostrand {

// What one block of a transcript put out, and what was heeded then.
struct PlayedBlock {
  std::vector<Output> outputs;
  HeededCalls heeded;
};

// "..." in the pattern stands for any run of characters, also an empty one.
bool matchesPattern(std::string_view pattern, std::string_view text);
// The same for an output with its document; a repetition mark at the end of the expected line is not part of the pattern.
bool matchesOutput(const Output& expected, const Output& actual);
// Whether an expected line may come more than once: it ends in " +".
bool mayRepeat(std::string_view expectedLine);

// A played transcript beside what its file expects, as the edits that would make the file right. Expected lines that match
// stay as they are, comments and blank lines too.
class TranscriptComparison {
 public:
  // One played block for each block of the transcript.
  TranscriptComparison(const Transcript& transcript, const std::vector<PlayedBlock>& played);

  bool matches() const { return mMatches; }
  // The unified diff from the file to what was played, empty if it matches.
  std::string diff() const;
  // The text that the file should have.
  std::string updatedText() const;
  // What was played alone: comments, inputs, and every output as it was.
  const std::string& playedText() const { return mPlayedText; }
  // Errors that were reported, or left unhandled, and that the file did not expect.
  const std::vector<std::string>& unexpectedErrors() const { return mUnexpectedErrors; }

 private:
  struct Edit {
    char kind;  // ' ' stays, '-' goes, '+' comes
    std::string line;
  };
  void compareBlock(const Transcript& transcript, const Transcript::Block& block, const PlayedBlock& played);
  void insert(const Output& output);

  void addPlayed(const Transcript& transcript, const Transcript::Block& block, const PlayedBlock& played);

  std::string mFile;
  std::vector<Edit> mEdits;
  std::string mPlayedText;
  std::vector<std::string> mUnexpectedErrors;
  bool mMatches = true;
};

}  // namespace ostrand
