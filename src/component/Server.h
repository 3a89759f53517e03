#pragma once

#include "platform/types/IObject.h"

// The four entry points of the component server. A host finds them by name in the loaded library; nothing
// else is exported. None throws.
extern "C" {

// The class factory of a class, as IClassFactory or IObject. ClassNotAvailable for a class that is not
// here, NoInterface, BadPointer; `*out` is nullptr after a failure.
__attribute__((visibility("default"))) ostrand::Result DllGetClassObject(const ostrand::Guid& classId, const ostrand::Guid& interfaceId,
                                                                         void** out) noexcept;
// Ok when the library can be unloaded, False while components, factories or locks are alive.
__attribute__((visibility("default"))) ostrand::Result DllCanUnloadNow() noexcept;
// Writes the classes with this library's path to where hosts look, whole or not at all; RegistrationFailed
// leaves what was there.
__attribute__((visibility("default"))) ostrand::Result DllRegisterServer() noexcept;
// Removes the entries of this library and no others.
__attribute__((visibility("default"))) ostrand::Result DllUnregisterServer() noexcept;
}
