#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand demo`
void addDemoCommand(CLI::App& app);

}  // namespace ostrand
