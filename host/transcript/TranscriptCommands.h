#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/transcript/Transcript.h"

namespace ostrand {

class TranscriptStage;

// An input that a transcript may hold: what it looks like, and what it does.
struct TranscriptCommand {
  enum class Below { Nothing, FileOrDocument, Anything };

  const char* name;
  const char* arguments;  // as a message tells them
  const char* form;       // InputForm.h
  Below below;            // what may stand in the lines below it
  void (*carryOut)(TranscriptStage& stage, const TranscriptInput& input);
};

// All of them, as docs/transcripts.md lists them.
std::span<const TranscriptCommand> transcriptCommands();
// nullptr if there is none of this name.
const TranscriptCommand* findCommand(std::string_view name);
// What is wrong with an input, or an empty text.
std::string complaintAbout(const TranscriptInput& input);
// The input that a `during` holds.
TranscriptInput nestedInput(const TranscriptInput& during);

}  // namespace ostrand
