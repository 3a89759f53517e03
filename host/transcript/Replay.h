#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/ComponentSource.h"

namespace ostrand {

// Replays transcript files: feeds their inputs to the views and compares what comes out.
class Replay {
 public:
  enum class Outcome { Matches = 0, Differs = 1, Malformed = 2 };
  struct Result {
    Outcome outcome = Outcome::Matches;
    std::string text;                           // the diff, the output, or what is wrong with the file; with a line break at its end if not empty
    std::vector<std::string> unexpectedErrors;  // that were reported or left unhandled
    bool written = false;
  };

  // The components must outlive it; `data` is the data folder.
  Replay(ComponentSource& components, std::filesystem::path data) : mComponents(components), mData(std::move(data)) {}

  // Malformed: the file cannot be read, or one of its lines; nothing of it was played then.
  Result compare(const std::filesystem::path& file);
  // Writes what was played into the file, if it differs. Errors that it did not expect are no good baseline: then nothing is
  // written, unless forced.
  Result update(const std::filesystem::path& file, bool force);
  // The conversation as it was played, compared with nothing.
  Result print(const std::filesystem::path& file);

  // The files themselves, and all transcripts below the folders, in the order of their names. RuntimeError 53 for a name that
  // is neither.
  static std::vector<std::filesystem::path> filesOf(const std::vector<std::string>& filesAndFolders);

 private:
  template <class Use>
  Result played(const std::filesystem::path& file, Use use);

  ComponentSource& mComponents;
  std::filesystem::path mData;
};

}  // namespace ostrand
