#pragma once

#include "platform/types/Messenger.h"

namespace ostrand {

// Ends a subscription, if there is a messenger. A host that fails here is passed over: what ends must end.
inline void stopListening(const Ref<Messenger>& messenger, MessengerEvents& listener) noexcept {
  try {
    if (messenger) messenger->Unsubscribe(listener);
  } catch (...) {
    // There is nobody left to tell.
  }
}

}  // namespace ostrand
