#pragma once

#include "bus/IBusDependent.h"
#include "platform/trap/Procedure.h"

namespace ostrand {

// An entry of a view that has a bus strategy. It pins the strategy that it begins with too: what the entry calls may
// replace it, or release the view.
class BusProcedure : public Procedure {
 public:
  BusProcedure(Reporter& reporter, std::string_view procedure, const Ref<IBusDependent>& bus)
      : Procedure(reporter, procedure), mAtEntry(bus), mNow(bus) {}
  // An entry within another one, by what the outer one has pinned and whatever has become of the view since.
  BusProcedure(Reporter& reporter, std::string_view procedure, const BusProcedure& outer)
      : Procedure(reporter, procedure, outer.pinnedMessenger()), mAtEntry(outer.mAtEntry), mNow(mAtEntry) {}

  // The view's strategy of this moment, held while it is called; error 91 if there is none.
  Ref<IBusDependent> bus() const {
    if (!mNow) throwNothingThere("the bus strategy");
    return mNow;
  }

 private:
  Ref<IBusDependent> mAtEntry;
  const Ref<IBusDependent>& mNow;
};

}  // namespace ostrand
