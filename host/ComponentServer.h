#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/ComponentSource.h"
#include "host/ServerLibrary.h"
#include "platform/types/Registry.h"

namespace ostrand {

// The registered component classes. Which library makes a class stands in the registration file and nowhere else; a library
// is loaded when the first of its classes is asked for.
//
// A program that lies beside its component library has it register itself when the file does not know that library: also
// where the file names another copy of it, which may not fit the program's controls, and where a class is asked for that the
// file does not know and the library is newer than the file.
class ComponentServer : public ComponentSource {
 public:
  ComponentServer() : ComponentServer(programFolder() / ownLibraryName()) {}
  // With another library than the program's own for the case that a class is not known; it need not exist.
  explicit ComponentServer(std::filesystem::path ownLibrary) : mOwnLibrary(std::move(ownLibrary)) {}
  // The components that it made must be gone; a library with living ones stays in memory.
  ~ComponentServer() = default;

  // RuntimeError 5 with the name for a class that nobody has registered and for a damaged registration, 53 for a library that
  // is gone, 70 for a registration file that cannot be read or written.
  Ref<IObject> create(const std::string& className) override;
  // The registered classes in the order of the file.
  std::vector<RegisteredClass> classes();
  // Unloads every library that says that it is not used any more.
  void unloadUnused();

 private:
  bool registerOwn();
  ServerLibrary& library(const std::filesystem::path& file);

  std::filesystem::path mOwnLibrary;
  std::map<std::filesystem::path, std::unique_ptr<ServerLibrary>> mLibraries;
};

}  // namespace ostrand
