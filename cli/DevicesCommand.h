#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand devices`
void addDevicesCommand(CLI::App& app);

}  // namespace ostrand
