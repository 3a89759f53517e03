#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/transcript/CallListener.h"
#include "host/transcript/Transcript.h"
#include "platform/desktop/Desktop.h"

namespace ostrand {

// Writes the conversation of one view as a transcript that replays anywhere: it begins at `create` and needs no device, for
// what the host did stands in it as inputs.
//
// - Whoever does something to the view says so by an Input, and holds it until the view has returned.
// - The calls of the view come through RecordingMessenger, RecordingContainer, and whoever stands for the desktop ("wait",
//   "OpenDialog", "SaveDialog", as TranscriptDesktop tells them).
// - What the host answered becomes inputs before the one during which it was asked: answer, accept, dialog, fail, level,
//   maximize, tree, relations. An input inside of a call becomes a `during`.
// - Time that passed becomes `advance`. A replay begins on its own day, so a text that tells the time of day will differ.
//
// RecordedComponents does most of it for views of a host.
class TranscriptRecorder : public CallListener {
 public:
  // The desktop must outlive it.
  explicit TranscriptRecorder(const Desktop& desktop) : mDesktop(desktop), mClock(desktop.now()) {}

  // The language of the next text table that the view is handed.
  std::string language = "keys";

  class Input {
   public:
    Input(Input&& other) noexcept : mRecorder(std::exchange(other.mRecorder, nullptr)) {}
    Input& operator=(Input&&) = delete;
    ~Input() {
      if (mRecorder) mRecorder->inputEnds();
    }

   private:
    friend class TranscriptRecorder;
    explicit Input(TranscriptRecorder* recorder) : mRecorder(recorder) {}
    TranscriptRecorder* mRecorder;
  };
  // A line of a transcript without its "> ": "click Sample1Button(0)". An input inside of another, but not of a call that
  // the view made, is a part of that one and is not written.
  [[nodiscard]] Input input(const std::string& line, const std::optional<std::string>& document = std::nullopt);
  // A line that is put out and is no call: what a query gave.
  void put(std::string line);
  // An error that left a handler.
  void unhandled(const ErrorText& error);

  // The transcript so far.
  std::string text() const;

  // A word of an input line as it must be written: bare where it can be.
  static std::string word(const std::string& text);

  // CallListener
  Call begins(const CallText& call) override;
  void returns(Call call, const std::string& answer) override;
  void fails(Call call, const ErrorText& error) override;

 private:
  struct Block {
    std::vector<std::string> setup;  // lines of inputs that must stand before
    std::vector<std::string> input;  // its lines
    std::vector<Output> outputs;
    std::map<std::string, int> calls;  // how often each call came
    std::deque<std::string> answers;   // to questions, in the order in which they were asked; empty while open
    std::deque<std::string> accepts;
    bool timed = false;  // an advance of the clock, and what came of it
    LocalTime begin;     // the clock of the replay before it
  };
  struct OpenCall {
    std::string name;
    int ordinal;  // among the calls of its name in the block, from 1
    Block* block;
    std::optional<std::size_t> output;
    std::string* slot;  // for its answer
    LocalTime waitsUntil{};
  };

  Block& current();
  void addTimedBlock();
  void advanceTo(LocalTime time);
  void inputEnds();
  void setup(Block& block, const std::string& line, const std::optional<std::string>& document = std::nullopt);
  void learn(Block& block, const std::string& call, const std::string& answer);

  const Desktop& mDesktop;
  LocalTime mClock;  // where the clock of a replay stands
  LocalTime mLastTimed{};
  std::deque<Block> mBlocks;
  std::vector<OpenCall> mCalls;
  std::vector<std::size_t> mInputs;  // of each open input: how many calls were open when it began
  int mLevel = 3;
  std::string mMaximizeAllowed = "true";
  bool mKnowsTree = false;
  bool mKnowsRelations = false;
};

}  // namespace ostrand
