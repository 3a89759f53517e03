#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/controls/Ne107.h"
#include "workbench/render/Theme.h"

namespace ostrand {

// How the user wants the window; it applies to every device.
struct Settings {
  std::string language = "en";
  std::string locale = "en";
  Theme::Kind theme = Theme::Kind::Light;
  double scale = 1.0;
  int level = 3;
  std::map<std::string, std::string> units;  // by quantity
  std::vector<Ne107> priorities = ne107Order();
};

}  // namespace ostrand
