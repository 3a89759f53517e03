#pragma once

#include <string>

#include "platform/base/Locale.h"

namespace ostrand {

// The moment of a record as the table shows it: the user's short date, a blank, his short time. What is no date stays as it is.
std::string shownHistoryTime(const std::string& text, const Locale& locale);

}  // namespace ostrand
