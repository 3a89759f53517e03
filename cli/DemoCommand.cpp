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
  Demo::Options demo;
  std::string bus = "hart";
  int recipe = 0;
  bool fast = false;
};

void demo(Options options) {
  const Terminal terminal;
  ComponentServer components;
  // The conversation has its own time, in which minutes pass; who reads along gets his moments beside it.
  VirtualDesktop desktop;
  RealDesktop reader;
  options.demo.device = options.bus + "Blade";
  Demo demo(terminal, desktop, terminal.isWatched() && !options.fast ? &reader : nullptr, components, options.demo);
  if (options.recipe > 0)
    demo.changeRecipe(options.recipe);
  else
    demo.calibrate();
}

}  // namespace

void addDemoCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("demo", "Calibrate a simulated transmitter by the laboratory, and tell who says what");
  const auto options = std::make_shared<Options>();
  command->add_option("--language", options->demo.language, "Of the views: de, en, fi, sv, or keys; en if left out");
  command->add_option("--seed", options->demo.seed, "What makes the device's noise, 1 if left out");
  command->add_option("--bus", options->bus, "The transmitter's: hart or profibus; hart if left out")->check(CLI::IsMember({"hart", "profibus"}));
  command->add_option("--recipe", options->recipe, "Instead of the calibration: make this recipe the active one")->check(CLI::Range(1, 8));
  command->add_flag("--fast", options->fast, "Wait for nothing");
  command->callback([options] { demo(*options); });
}

}  // namespace ostrand
