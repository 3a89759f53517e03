#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/xml/Node.h"

namespace ostrand {

// One choice of an enumeration: its value on the wire and in the data set, and its key in the text table.
struct Choice {
  std::string value;
  std::string key;
  bool allowed = true;  // by the filter that is being made
  bool offered = true;  // by the filter in force
};

// The choices of a data:mappedParam, in their order.
class Choices {
 public:
  Choices() = default;
  explicit Choices(const Node& mapping) { read(mapping); }

  // True if they are others than before; else nothing is copied, and the filter stays.
  bool read(const Node& mapping);

  // The choice of a value: by its text, or else by its number, since a device may tell "2.0" for what the data set calls "2".
  // nullptr if there is none.
  const Choice* byValue(std::string_view value) const;
  const Choice* byKey(std::string_view key) const;

  bool empty() const { return mChoices.empty(); }
  std::size_t size() const { return mChoices.size(); }
  const Choice& operator[](std::size_t i) const { return mChoices[i]; }
  auto begin() const { return mChoices.begin(); }
  auto end() const { return mChoices.end(); }
  auto begin() { return mChoices.begin(); }
  auto end() { return mChoices.end(); }

 private:
  bool areThoseOf(const Node& mapping) const;
  std::vector<Choice> mChoices;
};

}  // namespace ostrand
