#pragma once

#include <filesystem>

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"

namespace ostrand {

// A component library in memory and its four entry points. The one place that knows how the system loads a library.
class ServerLibrary {
 public:
  // RuntimeError 53 (no such file) or 5 (no component library); each names the file and says why.
  explicit ServerLibrary(std::filesystem::path file);
  // Unloads the library if it says that it can be; else it stays in memory to the end of the program.
  ~ServerLibrary();
  ServerLibrary(const ServerLibrary&) = delete;
  ServerLibrary& operator=(const ServerLibrary&) = delete;

  const std::filesystem::path& file() const { return mFile; }

  // An empty component, or nothing and the reason.
  Result create(const Guid& classId, Ref<IObject>& component) const;
  bool canUnload() const { return mCanUnload() == Result::Ok; }
  // RuntimeError 70 with the place if it fails.
  void registerClasses() const;
  void unregisterClasses() const;

 private:
  using GetClassObject = Result (*)(const Guid&, const Guid&, void**);
  using Plain = Result (*)();
  void* symbol(const char* name) const;
  void registration(Plain entry, const char* what) const;

  std::filesystem::path mFile;
  void* mHandle = nullptr;
  GetClassObject mGetClassObject = nullptr;
  Plain mCanUnload = nullptr;
  Plain mRegister = nullptr;
  Plain mUnregister = nullptr;
};

// The folder in which the running program lies; empty if the system does not tell.
std::filesystem::path programFolder();
// How the component library of this system is called as a file.
std::filesystem::path ownLibraryName();

}  // namespace ostrand
