#pragma once

#include "platform/types/IObject.h"
#include "platform/xml/Document.h"

namespace ostrand {

class ITaviDataEditor : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a0b");

  // What a write request carries: the `item` element of an edit, whatever the edit holds. An editor of many values gives an
  // empty node while one of them is not correct, unless `ignoreErrors` is set.
  virtual Node GetXmlItem(bool ignoreErrors) = 0;
};

}  // namespace ostrand
