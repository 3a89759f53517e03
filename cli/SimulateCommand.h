#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand simulate`
void addSimulateCommand(CLI::App& app);

}  // namespace ostrand
