#pragma once

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"
#include "platform/types/ITextTable.h"

namespace ostrand {

class ILocalizable : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a0a");

  virtual void Localize(const Ref<ITextTable>& textTable) = 0;
};

}  // namespace ostrand
