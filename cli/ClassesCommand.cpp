#include "cli/ClassesCommand.h"

#include <CLI/CLI.hpp>

#include "cli/Terminal.h"
#include "host/ComponentServer.h"

namespace ostrand {

namespace {

void listClasses() {
  const Terminal terminal;
  ComponentServer components;
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> libraries;
  for (const RegisteredClass& each : components.classes()) {
    rows.push_back({each.name, each.description});
    if (libraries.empty() || libraries.back() != each.library.string()) libraries.push_back(each.library.string());
  }
  for (const std::string& line : aligned(rows)) terminal.line(line);
  if (rows.empty()) terminal.line("No classes are registered in " + registryPath().string() + "; see \"ostrand register\".");
  for (const std::string& library : libraries) terminal.line(terminal.styled("from " + library, Terminal::Style::Dim));
}

}  // namespace

void addClassesCommand(CLI::App& app) { app.add_subcommand("classes", "List the component classes that a host can create")->callback(listClasses); }

}  // namespace ostrand
