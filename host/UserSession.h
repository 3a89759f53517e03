#pragma once

#include <string>

namespace ostrand {

// Who sits before the host, and how the views are to speak to him.
struct UserSession {
  int level = 3;                // what changes the device needs 3 or more
  std::string language = "en";  // of TextTables
  bool maximizeAllowed = true;  // whether a view may enlarge a part of itself and open file dialogs

  bool mayWrite() const { return level >= 3; }
};

// The communication modes as the views know them.
enum class CommunicationMode { LocalAcceptance = 10, Download = 11, Busy = 20, Free = 21 };

}  // namespace ostrand
