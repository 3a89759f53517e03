#include "host/transcript/HiddenFolders.h"

#include <algorithm>
#include <cctype>

#include "platform/controls/Value.h"

namespace ostrand {

namespace {

// Whether a path that goes on at `at` has begun before it: in "files/tmp/x" no "/tmp/" is hidden.
bool isInsideOfPath(const std::string& text, std::size_t at) {
  if (at == 0) return false;
  const char before = text[at - 1];
  return std::isalnum(static_cast<unsigned char>(before)) || before == '.' || before == '_' || before == '-';
}

}  // namespace

void HiddenFolders::add(const std::filesystem::path& folder) {
  const std::filesystem::path whole = (folder / "").lexically_normal();
  if (!whole.has_relative_path()) return;
  const std::string plain = whole.string();
  // Outputs have most of their texts in quotes, with these escapes.
  const std::string quoted = inQuotes(plain);
  for (const std::string& each : {plain, quoted.substr(1, quoted.size() - 2)})
    if (std::find(mPrefixes.begin(), mPrefixes.end(), each) == mPrefixes.end()) mPrefixes.push_back(each);
  std::stable_sort(mPrefixes.begin(), mPrefixes.end(), [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

std::string HiddenFolders::shown(std::string text) const {
  for (const std::string& prefix : mPrefixes)
    for (std::size_t at = text.find(prefix); at != text.npos; at = text.find(prefix, at)) {
      if (isInsideOfPath(text, at))
        ++at;
      else
        text.erase(at, prefix.size());
    }
  return text;
}

}  // namespace ostrand
