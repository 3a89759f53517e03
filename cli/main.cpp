#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "cli/CheckCommand.h"
#include "cli/ClassesCommand.h"
#include "cli/DemoCommand.h"
#include "cli/DevicesCommand.h"
#include "cli/RegisterCommand.h"
#include "cli/ReplayCommand.h"
#include "cli/SimulateCommand.h"
#include "platform/base/RuntimeError.h"

using namespace ostrand;

int main(int argc, char** argv) {
  CLI::App app("The views of the Ostrand transmitters, from the command line", "ostrand");
  app.footer(
      "Exit codes: 0 all is well, 1 something differs or is missing, 2 the command could not be carried out.\n"
      "Environment: OSTRAND_DATA the data folder, OSTRAND_REGISTRY the file of registered components, NO_COLOR.");
  app.require_subcommand(1);
  addDemoCommand(app);
  addReplayCommand(app);
  addCheckCommand(app);
  addSimulateCommand(app);
  addDevicesCommand(app);
  addClassesCommand(app);
  addRegisterCommand(app);
  try {
    app.parse(argc, argv);
    return 0;
  } catch (const CLI::RuntimeError& result) {
    return result.get_exit_code();
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  } catch (const ostrand::RuntimeError& error) {
    std::fprintf(stderr, "ostrand: %s\n", error.what());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "ostrand: %s\n", error.what());
  }
  return 2;
}
