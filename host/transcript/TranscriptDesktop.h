#pragma once

#include <deque>
#include <functional>

#include "host/transcript/TranscriptOutput.h"
#include "platform/desktop/VirtualDesktop.h"

namespace ostrand {

// The desktop of a transcript: what views ask it for is part of the conversation.
class TranscriptDesktop : public VirtualDesktop {
 public:
  explicit TranscriptDesktop(TranscriptOutput& output) : mOutput(output) {
    setProbe(&output);
    unhandled.connect([&output](const ErrorText& error) { output.printUnhandled(error); });
  }

  void wait(double seconds) override;
  std::optional<std::filesystem::path> openDialog(const FileDialog& dialog) override { return ask("OpenDialog", dialog, findFile); }
  std::optional<std::filesystem::path> saveDialog(const FileDialog& dialog) override { return ask("SaveDialog", dialog, newFile); }
  void debugOutput(const std::string& text) override;

  // What the next file dialogs give, in order; nothing stands for a dialog that was cancelled, and so does an empty queue.
  std::deque<std::optional<std::string>> files;
  // Where the file of this name is, and where one is to be written.
  std::function<std::filesystem::path(const std::string&)> findFile;
  std::function<std::filesystem::path(const std::string&)> newFile;

 private:
  std::optional<std::filesystem::path> ask(const char* call, const FileDialog& dialog,
                                           const std::function<std::filesystem::path(const std::string&)>& place);

  TranscriptOutput& mOutput;
};

}  // namespace ostrand
