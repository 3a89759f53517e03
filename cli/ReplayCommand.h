#pragma once

namespace CLI {
class App;
}

namespace ostrand {

// `ostrand replay FILE...`: exit code 0 if every transcript matches, 1 if one differs, 2 if one is malformed.
void addReplayCommand(CLI::App& app);

}  // namespace ostrand
