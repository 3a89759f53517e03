#include "host/ServerLibrary.h"

#include "platform/base/RuntimeError.h"
#include "platform/types/IClassFactory.h"
#include "platform/types/Registry.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace ostrand {

namespace {

#ifdef _WIN32
void* load(const std::filesystem::path& file) { return LoadLibraryW(file.c_str()); }
void unload(void* handle) { FreeLibrary(static_cast<HMODULE>(handle)); }
void* find(void* handle, const char* name) { return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name)); }
std::string lastReason() { return "error " + std::to_string(GetLastError()); }
#else
// All of its symbols at once: a library that does not fit is to fail here and not in the middle of a view.
void* load(const std::filesystem::path& file) { return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL); }
void unload(void* handle) { dlclose(handle); }
void* find(void* handle, const char* name) { return dlsym(handle, name); }
std::string lastReason() {
  const char* const reason = dlerror();
  return reason ? reason : "unknown reason";
}
#endif

}  // namespace

ServerLibrary::ServerLibrary(std::filesystem::path file) : mFile(std::move(file)) {
  std::error_code ignored;
  if (!std::filesystem::exists(mFile, ignored)) throw RuntimeError(RuntimeError::FileNotFound, mFile.string() + ": no such component library");
  mFile = std::filesystem::canonical(mFile, ignored);
  mHandle = load(mFile);
  if (!mHandle) throw RuntimeError(RuntimeError::BadArgument, mFile.string() + ": cannot be loaded: " + lastReason());
  try {
    mGetClassObject = reinterpret_cast<GetClassObject>(symbol("DllGetClassObject"));
    mCanUnload = reinterpret_cast<Plain>(symbol("DllCanUnloadNow"));
    mRegister = reinterpret_cast<Plain>(symbol("DllRegisterServer"));
    mUnregister = reinterpret_cast<Plain>(symbol("DllUnregisterServer"));
  } catch (...) {
    unload(mHandle);
    throw;
  }
}

ServerLibrary::~ServerLibrary() {
  if (canUnload()) unload(mHandle);
}

void* ServerLibrary::symbol(const char* name) const {
  if (void* const found = find(mHandle, name)) return found;
  throw RuntimeError(RuntimeError::BadArgument, mFile.string() + ": no component library: it does not export " + name);
}

Result ServerLibrary::create(const Guid& classId, Ref<IObject>& component) const {
  void* out = nullptr;
  Result result = mGetClassObject(classId, IClassFactory::kId, &out);
  if (result != Result::Ok) return result;
  const Ref<IClassFactory> factory = Ref<IClassFactory>::adopt(static_cast<IClassFactory*>(out));
  out = nullptr;
  result = factory->createInstance(nullptr, IObject::kId, &out);
  if (result == Result::Ok) component = Ref<IObject>::adopt(static_cast<IObject*>(out));
  return result;
}

void ServerLibrary::registerClasses() const { registration(mRegister, "register"); }

void ServerLibrary::unregisterClasses() const { registration(mUnregister, "unregister"); }

void ServerLibrary::registration(Plain entry, const char* what) const {
  const std::filesystem::path registry = registryPath();
  // The entry point says only that it failed; a damaged file is the one reason that we can tell.
  readRegistry(registry);
  if (entry() != Result::Ok)
    throw RuntimeError(RuntimeError::PermissionDenied,
                       mFile.string() + " could not " + what + " its classes in " + registry.string() + ": is the file writable?");
}

std::filesystem::path programFolder() {
  std::error_code ignored;
#ifdef _WIN32
  wchar_t path[MAX_PATH];
  return GetModuleFileNameW(nullptr, path, MAX_PATH) ? std::filesystem::path(path).parent_path() : std::filesystem::path();
#else
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
#endif
}

std::filesystem::path ownLibraryName() {
#ifdef _WIN32
  return "DTMGUI_Ostrand.dll";
#else
  return "libDTMGUI_Ostrand.so";
#endif
}

}  // namespace ostrand
