#pragma once

#include <string>

#include "platform/base/Ref.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/IObject.h"

namespace ostrand {

class Desktop;

// A class factory makes an empty component; Place brings it to life and may be called once. The desktop
// outlives the component. Sizes are in twips (1/1440 inch).
class IPlaceable : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a0d");

  // Initialization, reading of the design-time properties, first resize. An empty tag leaves the
  // component's own.
  virtual void Place(Desktop& desktop, const Ref<IHostContainer>& parent, const std::string& tag) = 0;
  virtual void Resize(int width, int height) = 0;
  // The end of the component's use: clears what PrepareToRelease clears. The caller then releases its count.
  virtual void Terminate() = 0;
};

}  // namespace ostrand
