#include "cli/RegisterCommand.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/Terminal.h"
#include "host/ServerLibrary.h"
#include "platform/types/Registry.h"

namespace ostrand {

namespace {

void change(const std::string& told, bool add) {
  const ServerLibrary library(told.empty() ? programFolder() / ownLibraryName() : std::filesystem::path(told));
  if (add)
    library.registerClasses();
  else
    library.unregisterClasses();
  Terminal().line((add ? "Registered " : "Unregistered ") + library.file().string() + " in " + registryPath().string());
}

void addOne(CLI::App& app, const char* name, const char* description, bool add) {
  CLI::App* const command = app.add_subcommand(name, description);
  const auto library = std::make_shared<std::string>();
  command->add_option("LIBRARY", *library, "A component library; the one beside this program if left out");
  command->callback([library, add] { change(*library, add); });
}

}  // namespace

void addRegisterCommand(CLI::App& app) {
  addOne(app, "register", "Let hosts find the classes of a component library", true);
  addOne(app, "unregister", "Take the classes of a component library out of the registration", false);
}

}  // namespace ostrand
