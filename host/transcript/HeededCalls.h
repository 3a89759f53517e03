#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

// Which outputs a transcript prints and compares: all, but for the names that it ignores. Of a name it may heed only the
// calls whose first argument begins with one of certain texts.
class HeededCalls {
 public:
  void ignore(const std::string& name) { mRestricted[name].clear(); }
  void heed(const std::string& name) { mRestricted.erase(name); }
  void heedOnly(const std::string& name, const std::string& beginning) { mRestricted[name].push_back(beginning); }

  bool heeds(std::string_view name, std::string_view firstArgument) const;
  // The same for a line of a transcript.
  bool heedsLine(const std::string& line) const;

 private:
  std::map<std::string, std::vector<std::string>, std::less<>> mRestricted;  // by name: the beginnings, none if ignored
};

}  // namespace ostrand
