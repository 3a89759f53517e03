#include "host/ComponentServer.h"

#include <algorithm>

#include "host/DataFolder.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code ignored;
  return std::filesystem::equivalent(a, b, ignored);
}

bool isNewer(const std::filesystem::path& file, const std::filesystem::path& other) {
  std::error_code ignored;
  return std::filesystem::last_write_time(file, ignored) > std::filesystem::last_write_time(other, ignored);
}

}  // namespace

Ref<IObject> ComponentServer::create(const std::string& className) {
  std::vector<RegisteredClass> known = classes();
  const auto find = [&] { return std::find_if(known.begin(), known.end(), [&](const RegisteredClass& each) { return each.name == className; }); };
  auto entry = find();
  if (entry == known.end() && isNewer(mOwnLibrary, registryPath()) && registerOwn()) {
    known = readRegistry(registryPath());
    entry = find();
  }
  if (entry == known.end()) throw RuntimeError(RuntimeError::BadArgument, "no such component class: \"" + className + "\"");
  Ref<IObject> component;
  const Result result = library(entry->library).create(entry->id, component);
  if (result == Result::Ok) return component;
  if (result == Result::ClassNotAvailable)
    throw RuntimeError(RuntimeError::BadArgument,
                       "no such component class: \"" + className + "\" is registered, but " + entry->library.string() + " does not have it");
  throw RuntimeError(RuntimeError::Unexpected,
                     "a \"" + className + "\" could not be created (result " + std::to_string(static_cast<unsigned>(result)) + ")");
}

std::vector<RegisteredClass> ComponentServer::classes() {
  std::vector<RegisteredClass> known = readRegistry(registryPath());
  const bool ownIsKnown =
      std::any_of(known.begin(), known.end(), [&](const RegisteredClass& entry) { return isSameFile(entry.library, mOwnLibrary); });
  if (!ownIsKnown && registerOwn()) known = readRegistry(registryPath());
  return known;
}

bool ComponentServer::registerOwn() {
  if (!isThere(mOwnLibrary)) return false;
  library(mOwnLibrary).registerClasses();
  return true;
}

ServerLibrary& ComponentServer::library(const std::filesystem::path& file) {
  std::error_code ignored;
  std::unique_ptr<ServerLibrary>& loaded = mLibraries[std::filesystem::weakly_canonical(file, ignored)];
  if (!loaded) loaded = std::make_unique<ServerLibrary>(file);
  return *loaded;
}

void ComponentServer::unloadUnused() {
  std::erase_if(mLibraries, [](const auto& each) { return !each.second || each.second->canUnload(); });
}

}  // namespace ostrand
