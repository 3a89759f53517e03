#include "cli/SimulateCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "cli/Terminal.h"
#include "host/DataFolder.h"
#include "host/Messages.h"
#include "platform/base/RuntimeError.h"
#include "platform/desktop/VirtualDesktop.h"
#include "simulator/Device.h"

namespace ostrand {

namespace {

struct Options {
  std::string device;
  unsigned seed = 1;
  std::vector<std::string> faults;
};

std::unique_ptr<Device> deviceOf(const Options& options, Desktop& desktop) {
  for (const DeviceKind& kind : deviceKinds())
    if (kind.name == options.device) return makeDevice(kind.name, desktop, Document::readFile(dataFolder() / kind.dataSet), options.seed);
  std::string known;
  for (const DeviceKind& kind : deviceKinds()) known += (known.empty() ? "" : ", ") + std::string(kind.name);
  throw RuntimeError(RuntimeError::BadArgument, "no such device: \"" + options.device + "\"; there are " + known);
}

void simulate(const Options& options) {
  const Terminal terminal;
  VirtualDesktop desktop;
  const std::unique_ptr<Device> device = deviceOf(options, desktop);
  for (const std::string& fault : options.faults) {
    const std::size_t blank = fault.find(' ');
    device->setFault(fault.substr(0, blank), blank == fault.npos ? "" : fault.substr(blank + 1));
  }
  const std::string text{std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
  int answers = 0;
  device->request(readRequestText(text, {}), [&](const Document& answer) {
    ++answers;
    terminal.print(answer.xml(true));
  });
  while (device->underWay() > 0) desktop.wait(device->busTimePerTransaction());
  if (answers > 0) return;
  std::fprintf(stderr, "The device did not answer.\n");
  throw CLI::RuntimeError(1);
}

}  // namespace

void addSimulateCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("simulate", "Print the answers of a simulated device to a request from standard input");
  const auto options = std::make_shared<Options>();
  command->add_option("DEVICE", options->device, "The device; see \"ostrand devices\"")->required();
  command->add_option("--seed", options->seed, "What makes its noise, 1 if left out; the same seed gives the same answers");
  command->add_option("--fault", options->faults, "A fault with its argument in one word, as \"refuse sampling\"; may be given again");
  command->footer(
      "A request is a document or a bare element:\n"
      "  echo '<communicationRequest name=\"identification\" access=\"read\"/>' | ostrand simulate hartBlade\n"
      "One document comes out for each answer. Exit code 1 if the device does not answer.");
  command->callback([options] { simulate(*options); });
}

}  // namespace ostrand
