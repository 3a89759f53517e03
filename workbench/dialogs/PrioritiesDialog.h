#pragma once

#include <optional>
#include <vector>

#include "platform/controls/Ne107.h"
#include "workbench/words/Texts.h"

class QWidget;

namespace ostrand {

// Which of the device signals is shown when several are in force: the user puts them in order.
struct PrioritiesDialog {
  // Nothing if the user left it as it was.
  static std::optional<std::vector<Ne107>> choose(QWidget& window, const Texts& texts, const std::vector<Ne107>& priorities);
};

}  // namespace ostrand
