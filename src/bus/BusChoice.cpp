#include "bus/BusChoice.h"

#include "bus/BusHart.h"
#include "bus/BusProfibus.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

void chooseBus(Procedure& proc, Component& view, const std::string& viewName, const Document& doc, Ref<IBusDependent>& bus) {
  const std::string category = proc.value(std::string(), [&] {
    const auto found = attributeAnywhere(doc, "typeInfo:internalInfo", "busCategory");
    if (!found) throwNothingThere("the bus category");
    return *found;
  });
  proc.step([&] {
    if (category == "HART")
      bus = Ref<IBusDependent>(new BusHart(view.desktop(), view.lastError()));
    else if (category == "DPV1")
      bus = Ref<IBusDependent>(new BusProfibus(view.desktop(), view.lastError()));
    else
      proc.messenger().ShowMessage(viewName, "Not recognizing the bus category: " + category);
  });
}

}  // namespace ostrand
