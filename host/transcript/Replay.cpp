#include "host/transcript/Replay.h"

#include <algorithm>

#include "host/transcript/TranscriptPlayer.h"
#include "platform/base/File.h"

namespace ostrand {

template <class Use>
Replay::Result Replay::played(const std::filesystem::path& file, Use use) {
  try {
    const Transcript transcript = Transcript::read(file);
    const TranscriptComparison comparison(transcript, TranscriptPlayer(mComponents, mData).play(transcript));
    return use(comparison);
  } catch (const RuntimeError& error) {
    return {Outcome::Malformed, error.description() + "\n", {}, false};
  }
}

Replay::Result Replay::compare(const std::filesystem::path& file) {
  return played(file, [](const TranscriptComparison& comparison) {
    return Result{comparison.matches() ? Outcome::Matches : Outcome::Differs, comparison.diff(), comparison.unexpectedErrors(), false};
  });
}

Replay::Result Replay::update(const std::filesystem::path& file, bool force) {
  return played(file, [&](const TranscriptComparison& comparison) {
    if (comparison.matches()) return Result{};
    if (!force && !comparison.unexpectedErrors().empty()) {
      std::string text = file.generic_string() + ": not updated, for it reports what it did not expect (--force writes it all the same):\n";
      for (const std::string& error : comparison.unexpectedErrors()) text += "  " + error + "\n";
      return Result{Outcome::Differs, text, comparison.unexpectedErrors(), false};
    }
    writeWholeFile(file, comparison.updatedText());
    return Result{Outcome::Matches, {}, comparison.unexpectedErrors(), true};
  });
}

Replay::Result Replay::print(const std::filesystem::path& file) {
  return played(file, [](const TranscriptComparison& comparison) { return Result{Outcome::Matches, comparison.playedText(), {}, false}; });
}

std::vector<std::filesystem::path> Replay::filesOf(const std::vector<std::string>& filesAndFolders) {
  std::vector<std::filesystem::path> files;
  for (const std::string& name : filesAndFolders) {
    std::error_code error;
    if (!std::filesystem::is_directory(name, error)) {
      if (!std::filesystem::exists(name, error)) throw RuntimeError(RuntimeError::FileNotFound, name + ": no such file");
      files.emplace_back(name);
      continue;
    }
    const std::size_t before = files.size();
    for (auto each = std::filesystem::recursive_directory_iterator(name, std::filesystem::directory_options::skip_permission_denied, error);
         !error && each != std::filesystem::recursive_directory_iterator(); each.increment(error))
      if (each->path().extension() == ".transcript" && each->is_regular_file()) files.push_back(each->path());
    std::sort(files.begin() + static_cast<std::ptrdiff_t>(before), files.end());
  }
  return files;
}

}  // namespace ostrand
