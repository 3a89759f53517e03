#pragma once

#include "platform/types/IObject.h"
#include "platform/xml/Document.h"

namespace ostrand {

class ITaviDataEditor : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a0b");

  // The `item` element that a write request carries. With `ignoreErrors` off, a value that is not correct
  // gives an empty node.
  virtual Node GetXmlItem(bool ignoreErrors) = 0;
};

}  // namespace ostrand
