#pragma once

#include <utility>

#include "platform/types/Messenger.h"

namespace ostrand {

// Ends a subscription, if there is a messenger, and holds it until it has answered. A host that fails here is
// passed over: what ends must end.
inline void stopListening(Ref<Messenger> messenger, MessengerEvents& listener) noexcept {
  try {
    if (messenger) messenger->Unsubscribe(listener);
  } catch (...) {
    // There is nobody left to tell.
  }
}

// Goes over to another messenger, which may be none. A host may release the listener while it is left or joined:
// then `own` is another one afterwards, and nobody is listened to.
inline void changeMessenger(Ref<Messenger>& own, const Ref<Messenger>& messenger, MessengerEvents& listener) {
  const Ref<Messenger> joined = messenger;
  stopListening(std::exchange(own, joined), listener);
  if (!joined || own != joined) return;
  joined->Subscribe(listener);
  if (own != joined) stopListening(joined, listener);
}

}  // namespace ostrand
