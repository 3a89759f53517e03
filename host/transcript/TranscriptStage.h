#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/ComponentSource.h"
#include "host/TextTables.h"
#include "host/UnitService.h"
#include "host/transcript/ControlPath.h"
#include "host/transcript/TranscriptOutput.h"
#include "host/transcript/DeviceHost.h"
#include "host/transcript/HostScript.h"
#include "host/transcript/TranscriptDesktop.h"
#include "host/transcript/TranscriptFiles.h"
#include "platform/controls/Component.h"
#include "platform/types/Query.h"

namespace ostrand {

// What the inputs of a transcript act on: the views that it has created, the host and the desktop behind them, its files,
// and the conversation that collects what is put out.
//
// An input that cannot be carried out throws a RuntimeError, which rejects it.
class TranscriptStage {
 public:
  struct View {
    std::string name;
    std::string className;
    Ref<IObject> object;
    Ref<Messenger> messenger;
    Ref<ViewSite> site;  // with the real host only
  };
  // What ends an input has been put out already.
  struct InputEnded {};

  // The components must outlive it. `carryOut` gets the inputs that come in between.
  TranscriptStage(ComponentSource& components, const std::filesystem::path& data, std::function<void(const TranscriptInput&)> carryOut);
  // Ends in silence the views that are left.
  ~TranscriptStage();
  TranscriptStage(const TranscriptStage&) = delete;
  TranscriptStage& operator=(const TranscriptStage&) = delete;

  TranscriptOutput output;
  TranscriptFiles files;
  TranscriptDesktop desktop;
  Ref<HostScript> script;
  TextTables texts;
  Ref<UnitService> units;
  std::vector<Document> documents;     // that were handed in, in order
  std::unique_ptr<DeviceHost> device;  // the real host; without one the script alone answers

  // The view that the inputs are meant for from then on.
  void create(const std::string& className, const std::string& name, const std::string& tag);
  void turnTo(const std::string& name);
  void terminate();
  // Puts a simulated device behind the host.
  void connect(const std::string& deviceName, unsigned seed);
  void raise(const ViewEvent& event);
  void end();

  // RuntimeError 91 where there is no view.
  View& current();
  // The interface of the view, or RuntimeError 438.
  template <class I>
  Ref<I> need(const char* interfaceName) {
    const Ref<I> found = query<I>(current().object.get());
    if (!found) throw RuntimeError(RuntimeError::NoSuchMember, current().className + " has no " + interfaceName);
    return found;
  }
  // Of a component that is no view its own controls.
  const ControlCollection& controls();
  // The control of this name, or `NoSuchControl` and the end of the input.
  Control& control(const std::string& name);
  // Nothing for a view without controls.
  const Component* component();
  // Calls a view; what leaves it is told as unhandled.
  template <class Body>
  void onView(Body body) {
    const Ref<IObject> pin = mCurrent ? mCurrent->object : nullptr;
    try {
      body();
    } catch (...) {
      output.printUnhandled(currentError());
    }
  }

 private:
  TranscriptOutput::Views viewsFor(std::function<void(const TranscriptInput&)> carryOut);
  // The events of a component that stands by itself are put out.
  void listen(const Ref<IPlaceable>& component);
  void endView(View& view);
  void forget(View& view);

  ComponentSource& mComponents;
  std::vector<std::unique_ptr<View>> mViews;
  View* mCurrent = nullptr;
  std::unique_ptr<View> mMade;  // until the real host has made its component
};

}  // namespace ostrand
