#include "platform/controls/CtrOptionEdit.h"

#include <utility>

namespace ostrand {

void CtrOptionEdit::SetOptionValues(std::vector<std::string> values) {
  if (probe()) {
    std::string arguments;
    for (const std::string& value : values) arguments += " " + inQuotes(value);
    announce("SetOptionValues", arguments);
  }
  mOptionValues = std::move(values);
}

void CtrOptionEdit::follow(const std::string& key) {
  if (probe()) probeSetting("Text", key);
  update(key, mModified && key != storedText());
}

}  // namespace ostrand
