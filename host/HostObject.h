#pragma once

#include "platform/types/Query.h"

namespace ostrand {

// The counting of an object of the host that offers interfaces to views. An object lives until its last count is released.
template <class... Interfaces>
class HostObject : public Interfaces... {
 public:
  HostObject() = default;
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  Result queryInterface(const Guid& id, void** out) noexcept override {
    if (!out) return Result::BadPointer;
    *out = nullptr;
    if ((offer<Interfaces>(id, this, out) || ...)) return Result::Ok;
    if (id == IObject::kId) {
      *out = static_cast<IObject*>(this);
      addRef();
      return Result::Ok;
    }
    return Result::NoInterface;
  }
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override {
    const std::uint32_t left = --mCount;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~HostObject() = default;

 private:
  std::uint32_t mCount = 0;
};

}  // namespace ostrand
