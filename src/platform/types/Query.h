#pragma once

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"

namespace ostrand {

// The interface `I` of an object, or nothing.
template <class I>
Ref<I> query(IObject* object) {
  void* out = nullptr;
  if (object && object->queryInterface(I::kId, &out) == Result::Ok) return Ref<I>::adopt(static_cast<I*>(out));
  return nullptr;
}

// For the body of a queryInterface: hands out `self` as `I` if that is what `id` asks for.
template <class I>
bool offer(const Guid& id, I* self, void** out) noexcept {
  if (!(id == I::kId)) return false;
  *out = self;
  self->addRef();
  return true;
}

}  // namespace ostrand
