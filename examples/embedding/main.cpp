// A host in one small program: opens the measurement view, hands it a data set and one answer of the device, and clicks its
// button. It knows the headers of the platform and the four entry points of the component server.   embedding LIBRARY DATASET
#include <dlfcn.h>

#include "SmallHost.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/desktop/RealDesktop.h"
#include "platform/types/IClassFactory.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/IPlaceable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/ITaviView.h"
#include "platform/types/Registry.h"

const std::string kAnswer =
    "<dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationResponse name=\"activeRecipe\" access=\"read\" responseStatus=\"ok\">"
    "<item name=\"activeRecipe\"><integerVal>2</integerVal></item></communicationResponse></dtm>";

void useView(IObject* component, const Document& dataSet) {
  RealDesktop desktop;  // outlives the view's use
  const Ref<SmallHost> host(new SmallHost);
  const Ref<ITaviView> view = query<ITaviView>(component);
  const Ref<ITaviDataUser> user = query<ITaviDataUser>(component);

  query<IPlaceable>(component)->Place(desktop, host, "measurement");
  query<ITaviComponent>(component)->SetMessenger(host);
  query<ILocalizable>(component)->Localize(host);
  view->SetSelectedView("activeRecipe");
  user->SetOfflineData(dataSet);
  host->raiseCommunicationMode(11);  // values go to the device
  view->RequestFocus();

  desktop.schedule(0.1, [&] { user->SetOnlineData(Document::read(kAnswer)); });  // the device answers
  desktop.wait(0.2);
  for (Control* control : view->GetControls())
    if (auto* button = dynamic_cast<CommandButton*>(control)) button->click();  // the user

  if (view->LeaveSelectedView()) say("The view may be left.");
  view->PrepareToRelease();
  query<IPlaceable>(component)->Terminate();
}

int main(int argc, char** argv) try {
  void* const library = argc == 3 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
  if (!library) return std::cerr << (argc == 3 ? dlerror() : "embedding LIBRARY DATASET") << "\n", 2;
  const auto getClassObject = reinterpret_cast<Result (*)(const Guid&, const Guid&, void**)>(dlsym(library, "DllGetClassObject"));
  const auto call = [&](const char* entry) { return reinterpret_cast<Result (*)()>(dlsym(library, entry))(); };

  // An installer does this once; from then on a host finds the class and its library by name.
  if (call("DllRegisterServer") != Result::Ok) throw RuntimeError(RuntimeError::PermissionDenied, "cannot register in " + registryPath().string());
  for (const RegisteredClass& each : readRegistry(registryPath())) {
    if (each.name != "VwMeasurement") continue;
    void* out = nullptr;
    if (getClassObject(each.id, IClassFactory::kId, &out) != Result::Ok) return 1;
    const auto factory = Ref<IClassFactory>::adopt(static_cast<IClassFactory*>(out));
    if (factory->createInstance(nullptr, IObject::kId, &out) != Result::Ok) return 1;
    const auto component = Ref<IObject>::adopt(static_cast<IObject*>(out));
    useView(component.get(), Document::readFile(argv[2]));
  }
  call("DllUnregisterServer");
  say(call("DllCanUnloadNow") == Result::Ok ? "Nothing is alive in the library." : "Something is still alive in the library.");
  return dlclose(library);
} catch (const RuntimeError& error) {
  return std::cerr << error.description() << "\n", 1;
}
