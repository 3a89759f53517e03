#pragma once

#include "bus/IBusDependent.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

// An entry of a view that has a bus strategy. It pins the strategy that it begins with too: what the entry calls may
// replace it, or release the view.
class BusProcedure : public Procedure {
 public:
  BusProcedure(Reporter& reporter, std::string_view procedure, const Ref<IBusDependent>& bus)
      : Procedure(reporter, procedure), mNow(bus), mAtEntry(bus) {}
  // An entry within another one, which must be carried out although the view has been released since: by what the
  // outer one has pinned.
  BusProcedure(Reporter& reporter, std::string_view procedure, const BusProcedure& outer)
      : Procedure(reporter, procedure, outer.pinnedMessenger()), mNow(outer.mNow), mInstead(outer.mAtEntry) {}

  // The view's strategy of this moment, held while it is called; error 91 if there is none.
  Ref<IBusDependent> bus() const {
    const Ref<IBusDependent>& bus = mNow ? mNow : mInstead;
    if (!bus) throwNothingThere("the bus strategy");
    return bus;
  }

 private:
  const Ref<IBusDependent>& mNow;
  Ref<IBusDependent> mAtEntry;
  Ref<IBusDependent> mInstead;
};

}  // namespace ostrand
