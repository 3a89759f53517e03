#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand check`
void addCheckCommand(CLI::App& app);

}  // namespace ostrand
