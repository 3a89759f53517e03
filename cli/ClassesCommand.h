#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand classes`
void addClassesCommand(CLI::App& app);

}  // namespace ostrand
