#include "cli/DevicesCommand.h"

#include <CLI/CLI.hpp>

#include "cli/Terminal.h"
#include "simulator/Device.h"

namespace ostrand {

namespace {

void listDevices() {
  const Terminal terminal;
  std::vector<std::vector<std::string>> devices, faults;
  for (const DeviceKind& each : deviceKinds()) devices.push_back({std::string(each.name), std::string(each.description)});
  for (const FaultKind& each : Device::faults())
    faults.push_back({std::string(each.name) + (each.argument.empty() ? "" : " " + std::string(each.argument)), std::string(each.description)});
  terminal.line(terminal.styled("Simulated devices", Terminal::Style::Heading));
  for (const std::string& line : aligned(devices)) terminal.line("  " + line);
  terminal.line();
  terminal.line(terminal.styled("Faults that they can have", Terminal::Style::Heading));
  for (const std::string& line : aligned(faults)) terminal.line("  " + line);
}

}  // namespace

void addDevicesCommand(CLI::App& app) { app.add_subcommand("devices", "List the simulated devices and their faults")->callback(listDevices); }

}  // namespace ostrand
