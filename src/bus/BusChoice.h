#pragma once

#include <string>

#include "bus/IBusDependent.h"
#include "platform/controls/Component.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

// The strategy for the bus category that a data set bears; with an unknown category the user is told, and
// the one that was there stays. `viewName` is the title of the message.
void chooseBus(Procedure& proc, Component& view, const std::string& viewName, const Document& doc, Ref<IBusDependent>& bus);

}  // namespace ostrand
