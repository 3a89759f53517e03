#pragma once

#include "component/Classes.h"
#include "platform/types/IClassFactory.h"

namespace ostrand {

// Makes components of one class.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ComponentClass& made) : mClass(made) {}

  Result queryInterface(const Guid& id, void** out) noexcept override;
  std::uint32_t addRef() noexcept override;
  std::uint32_t release() noexcept override;
  Result createInstance(IObject* outer, const Guid& interface, void** out) noexcept override;
  Result lockServer(bool lock) noexcept override;

  // Factories, components and locks that keep the library in memory.
  static bool anyAlive();

 private:
  const ComponentClass& mClass;
  std::uint32_t mCount = 0;
};

}  // namespace ostrand
