#pragma once

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"

namespace ostrand {

class Messenger;

class ITaviComponent : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a09");

  virtual void SetMessenger(const Ref<Messenger>& messenger) = 0;
};

}  // namespace ostrand
