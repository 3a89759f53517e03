#include "platform/base/LibraryPath.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace ostrand {

std::filesystem::path libraryPathOf(const void* address) {
  std::error_code ignored;
#ifdef _WIN32
  HMODULE module = nullptr;
  wchar_t path[MAX_PATH];
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, static_cast<LPCWSTR>(address),
                          &module) ||
      !GetModuleFileNameW(module, path, MAX_PATH))
    return {};
  return std::filesystem::absolute(path, ignored);
#else
  Dl_info info{};
  if (dladdr(address, &info) == 0 || !info.dli_fname) return {};
  return std::filesystem::absolute(info.dli_fname, ignored);
#endif
}

}  // namespace ostrand
