#include "host/transcript/HeededCalls.h"

#include <algorithm>

#include "host/transcript/TranscriptWords.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

bool HeededCalls::heeds(std::string_view name, std::string_view firstArgument) const {
  const auto restricted = mRestricted.find(name);
  if (restricted == mRestricted.end()) return true;
  return std::any_of(restricted->second.begin(), restricted->second.end(),
                     [&](const std::string& beginning) { return firstArgument.starts_with(beginning); });
}

bool HeededCalls::heedsLine(const std::string& line) const {
  const std::string name = line.substr(0, line.find(' '));
  if (!mRestricted.contains(name)) return true;
  try {
    const std::vector<TranscriptWord> words = readWords(line);
    return heeds(name, words.size() > 1 ? words[1].text : std::string());
  } catch (const RuntimeError&) {
    return heeds(name, {});  // a wildcard has cut a text in two
  }
}

}  // namespace ostrand
