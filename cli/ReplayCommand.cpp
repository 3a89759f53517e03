#include "cli/ReplayCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "host/ComponentServer.h"
#include "host/DataFolder.h"
#include "host/transcript/Replay.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

struct Options {
  std::vector<std::string> files;
  bool update = false;
  bool force = false;
  bool print = false;
};

void put(std::FILE* stream, const std::string& text) { std::fwrite(text.data(), 1, text.size(), stream); }

int replay(const Options& options) {
  ComponentServer components;
  Replay runner(components, dataFolder());
  auto worst = Replay::Outcome::Matches;
  std::size_t matching = 0, differing = 0, malformed = 0;
  for (const std::filesystem::path& file : Replay::filesOf(options.files)) {
    const Replay::Result result = options.print ? runner.print(file) : options.update ? runner.update(file, options.force) : runner.compare(file);
    const bool isComplaint = result.outcome == Replay::Outcome::Malformed || (options.update && !result.written);
    put(isComplaint ? stderr : stdout, result.text);
    if (result.written) put(stdout, "updated " + file.generic_string() + "\n");
    worst = std::max(worst, result.outcome);
    ++(result.outcome == Replay::Outcome::Matches ? matching : result.outcome == Replay::Outcome::Differs ? differing : malformed);
  }
  if (!options.print)
    put(stdout,
        std::to_string(matching) + " as expected, " + std::to_string(differing) + " different, " + std::to_string(malformed) + " malformed\n");
  return static_cast<int>(worst);
}

}  // namespace

void addReplayCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("replay", "Replay transcripts and compare what the views put out");
  const auto options = std::make_shared<Options>();
  command->add_option("FILE", options->files, "Transcripts, or folders with transcripts")->required();
  CLI::Option* const update = command->add_flag("--update", options->update, "Write what was put out into the files");
  command->add_flag("--force", options->force, "Update also a file that reports errors which it did not expect")->needs(update);
  command->add_flag("--print", options->print, "Print the conversation without comparing")->excludes(update);
  command->callback([options] {
    int code = 2;
    try {
      code = replay(*options);
    } catch (const RuntimeError& error) {
      put(stderr, error.description() + "\n");
    }
    if (code != 0) throw CLI::RuntimeError(code);
  });
}

}  // namespace ostrand
