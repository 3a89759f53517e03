#include "component/ClassFactory.h"

#include <new>

#include "platform/types/Query.h"

namespace ostrand {

namespace {

// One thread: the host's. Two counts, so that an unlock too many cannot hide a living component.
long gAlive = 0;
long gLocks = 0;

// What a component holds for as long as it lives.
struct Alive : Counted {
  Alive() { ++gAlive; }
  ~Alive() override { --gAlive; }
};

}  // namespace

bool ClassFactory::anyAlive() { return gAlive > 0 || gLocks > 0; }

Result ClassFactory::queryInterface(const Guid& id, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  if (offer<IObject>(id, this, out) || offer<IClassFactory>(id, this, out)) return Result::Ok;
  return Result::NoInterface;
}

std::uint32_t ClassFactory::addRef() noexcept {
  ++gAlive;
  return ++mCount;
}

std::uint32_t ClassFactory::release() noexcept {
  --gAlive;
  const std::uint32_t left = --mCount;
  if (left == 0) delete this;
  return left;
}

Result ClassFactory::createInstance(IObject* outer, const Guid& interface, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  if (outer) return Result::NoAggregation;
  try {
    // Counted while it is asked, so that a refused interface ends the component.
    const Ref<Component> component(mClass.create());
    component->keep(Ref<Counted>(new Alive));
    return component->queryInterface(interface, out);
  } catch (const std::bad_alloc&) {
    return Result::OutOfMemory;
  } catch (...) {
    return Result::Unexpected;
  }
}

Result ClassFactory::lockServer(bool lock) noexcept {
  gLocks += lock ? 1 : -1;
  if (gLocks < 0) gLocks = 0;
  return Result::Ok;
}

}  // namespace ostrand
