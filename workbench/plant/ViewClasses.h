#pragma once

#include <string>
#include <string_view>

namespace ostrand {

// Which component class shows a branch of the tree document, for each family of devices. Whether a class exists is for the
// component server to say.
struct ViewClasses {
  // As the data set tells them: "blade", "HART".
  std::string family;
  std::string bus;

  // The class for a branch ("measurement", "recipe2"); empty if the family has none.
  std::string_view of(std::string_view branch) const;
  // The class with the family's pictures; empty if the family is not known.
  std::string_view pictures() const;
};

}  // namespace ostrand
