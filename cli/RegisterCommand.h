#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand register [LIBRARY]` and `ostrand unregister [LIBRARY]`
void addRegisterCommand(CLI::App& app);

}  // namespace ostrand
