#pragma once

#include <set>
#include <string>

#include "host/ComponentServer.h"

namespace ostrand {

// Components by their class names, and whether there is a class of a name.
class ComponentCatalog : public ComponentSource {
 public:
  virtual bool has(const std::string& className) = 0;

 protected:
  ~ComponentCatalog() = default;
};

// The registered ones.
class RegisteredComponents : public ComponentCatalog {
 public:
  Ref<IObject> create(const std::string& className) override { return mServer.create(className); }
  bool has(const std::string& className) override;

 private:
  ComponentServer mServer;
  std::set<std::string> mNames;  // read once: who registers a class later is seen at the next start
};

}  // namespace ostrand
