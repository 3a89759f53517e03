#include "cli/DemoCommand.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/Demo.h"
#include "host/ComponentServer.h"
#include "platform/desktop/RealDesktop.h"
#include "platform/desktop/VirtualDesktop.h"

namespace ostrand {

namespace {

struct Options {
  std::string language = "en";
  unsigned seed = 1;
  bool fast = false;
};

void demo(const Options& options) {
  const Terminal terminal;
  ComponentServer components;
  // Where nobody watches there is nobody to wait for.
  std::unique_ptr<Desktop> desktop;
  if (terminal.isWatched() && !options.fast)
    desktop = std::make_unique<RealDesktop>();
  else
    desktop = std::make_unique<VirtualDesktop>();
  Demo(terminal, *desktop, components).play(options.language, options.seed);
}

}  // namespace

void addDemoCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("demo", "Hold a conversation with a simulated transmitter, and tell it");
  const auto options = std::make_shared<Options>();
  command->add_option("--language", options->language, "Of the views: de, en, fi, sv, or keys; en if left out");
  command->add_option("--seed", options->seed, "What makes the device's noise, 1 if left out");
  command->add_flag("--fast", options->fast, "Wait for nothing");
  command->callback([options] { demo(*options); });
}

}  // namespace ostrand
