#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types/IObject.h"

// The file that tells which library makes which component class:
//
//   <components>
//     <class name="VwMeasurement" id="xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx" library="/abs/path/lib.so" description="..."/>
//   </components>
//
// A component server writes its own entries, a host reads them. Every change is one write, whole or not at all. All that
// fails is RuntimeError: 5 for a file that is damaged, 70 for one that cannot be read or written; its description begins
// with the file's path. A damaged file is never overwritten.

namespace ostrand {

struct RegisteredClass {
  std::string name;
  Guid id;
  std::filesystem::path library;  // absolute
  std::string description;        // one line, may be empty
};

// Where the file is: OSTRAND_REGISTRY, or ostrand/components.xml below XDG_DATA_HOME or ~/.local/share. It need not exist.
std::filesystem::path registryPath();

// All entries in the order of the file; none if there is no file.
std::vector<RegisteredClass> readRegistry(const std::filesystem::path& file);

// Makes the entries of this library exactly `classes` (their field `library` is not looked at). A class of the same name
// that belonged to another library moves to this one. Makes the file's folder if there is none.
void addToRegistry(const std::filesystem::path& file, const std::filesystem::path& library, const std::vector<RegisteredClass>& classes);

// Takes out the entries of this library and no others; does nothing if it has none.
void removeFromRegistry(const std::filesystem::path& file, const std::filesystem::path& library);

// "8-4-4-4-12" hexadecimal digits, small when written; anything else gives nothing.
std::optional<Guid> readGuid(std::string_view text);
std::string guidText(const Guid& id);

}  // namespace ostrand
