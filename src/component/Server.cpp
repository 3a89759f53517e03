#include "component/Server.h"

#include <vector>

#include "component/ClassFactory.h"
#include "platform/base/LibraryPath.h"
#include "platform/types/Query.h"
#include "platform/types/Registry.h"

using namespace ostrand;

namespace {

// Lies in this library, so that its path can be asked for.
const char kHere = 0;

template <class F>
Result registering(F&& body) noexcept {
  try {
    body();
    return Result::Ok;
  } catch (...) {
    return Result::RegistrationFailed;
  }
}

}  // namespace

Result DllGetClassObject(const Guid& classId, const Guid& interfaceId, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  try {
    for (const ComponentClass& made : componentClasses()) {
      if (!(made.id == classId)) continue;
      const Ref<ClassFactory> factory(new ClassFactory(made));
      return factory->queryInterface(interfaceId, out);
    }
    return Result::ClassNotAvailable;
  } catch (...) {
    return Result::OutOfMemory;
  }
}

Result DllCanUnloadNow() noexcept { return ClassFactory::anyAlive() ? Result::False : Result::Ok; }

Result DllRegisterServer() noexcept {
  return registering([] {
    std::vector<RegisteredClass> classes;
    for (const ComponentClass& made : componentClasses()) classes.push_back({std::string(made.name), made.id, {}, std::string(made.description)});
    addToRegistry(registryPath(), libraryPathOf(&kHere), classes);
  });
}

Result DllUnregisterServer() noexcept {
  return registering([] { removeFromRegistry(registryPath(), libraryPathOf(&kHere)); });
}
