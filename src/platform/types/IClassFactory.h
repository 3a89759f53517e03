#pragma once

#include "platform/types/IObject.h"

namespace ostrand {

class IClassFactory : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("00000001-0000-0000-c000-000000000046");

  // `outer` must be nullptr: the components cannot be aggregated.
  virtual Result createInstance(IObject* outer, const Guid& interface, void** out) noexcept = 0;
  virtual Result lockServer(bool lock) noexcept = 0;
};

}  // namespace ostrand
