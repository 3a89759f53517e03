#pragma once

#include <span>
#include <string_view>

#include "platform/controls/Component.h"
#include "platform/types/IObject.h"

namespace ostrand {

struct ComponentClass {
  std::string_view name;
  Guid id;
  Component* (*create)();  // an empty component without a count; its caller places it
  std::string_view description;
};

// Every class that the component server can create.
std::span<const ComponentClass> componentClasses();

}  // namespace ostrand
