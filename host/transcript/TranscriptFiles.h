#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/transcript/HiddenFolders.h"
#include "host/transcript/ScratchFolder.h"
#include "host/transcript/Transcript.h"

namespace ostrand {

// The files of a transcript. It writes into folders of its own, which are empty at its start, and nowhere else; it reads
// among what was written, beside the transcript, and in the data folder, in this order.
class TranscriptFiles {
 public:
  // What they show of this machine is hidden; `hidden` must outlive them.
  TranscriptFiles(const std::filesystem::path& data, HiddenFolders& hidden);

  void playedFrom(const std::filesystem::path& transcript);

  const std::filesystem::path& data() const { return mData; }
  // Nothing if there is no file of this name.
  std::optional<std::filesystem::path> find(const std::string& name);
  // Where a file of this name is written; it need not exist.
  std::filesystem::path written(const std::string& name);
  // The text below the input, or of the file that it names first. RuntimeError 53 "no such file: NAME".
  std::string documentOf(const TranscriptInput& input);

  // What the views know as the folder of the host's files.
  const std::filesystem::path& hostFolder();
  // The relations file in it.
  std::filesystem::path relations();

 private:
  std::filesystem::path scratchFolder(const char* name);

  HiddenFolders& mHidden;
  std::filesystem::path mData;
  std::filesystem::path mFolder;  // of the transcript
  ScratchFolder mScratch;
  std::filesystem::path mHostFolder;  // empty until it is needed
};

}  // namespace ostrand
