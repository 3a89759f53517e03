#include "platform/controls/Panel.h"

#include "platform/types/Query.h"

namespace ostrand {

void Panel::PrepareToRelease() {
  Procedure proc(*this, "ITaviView_PrepareToRelease");
  proc.step([&] { terminate(); });
}

void Panel::terminate() {
  mMessenger = nullptr;
  mTextTable = nullptr;
}

bool Panel::offerInterface(const Guid& id, void** out) noexcept {
  return offer<ITaviView>(id, this, out) || offer<ITaviDataUser>(id, this, out) || offer<ITaviComponent>(id, this, out) ||
         offer<ILocalizable>(id, this, out);
}

}  // namespace ostrand
