#include "workbench/plant/ComponentCatalog.h"

namespace ostrand {

bool RegisteredComponents::has(const std::string& className) {
  if (mNames.empty())
    for (const RegisteredClass& each : mServer.classes()) mNames.insert(each.name);
  return mNames.contains(className);
}

}  // namespace ostrand
