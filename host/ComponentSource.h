#pragma once

#include <string>

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"

namespace ostrand {

// Where a host gets its components from. They are asked for by class name only.
class ComponentSource {
 public:
  // A new, empty component. RuntimeError 5 with the name for a class that there is not.
  virtual Ref<IObject> create(const std::string& className) = 0;

 protected:
  ~ComponentSource() = default;
};

}  // namespace ostrand
