#pragma once

#include <stdexcept>

#include "benchmarks/QuietHost.h"
#include "platform/controls/Component.h"
#include "platform/desktop/VirtualDesktop.h"

namespace ostrand::bench {

// A component with its desktop and its host. What is no view has less to offer.
struct Placed {
  explicit Placed(Component* made, const std::string& tag = {}, const Ref<QuietMessenger>& messenger = Ref(new QuietMessenger))
      : host(messenger), view(made) {
    view->Place(desktop, container, tag);
    if (const Ref<ITaviComponent> component = as<ITaviComponent>()) component->SetMessenger(host);
    if (const Ref<ILocalizable> localizable = as<ILocalizable>()) localizable->Localize(host->GetTextTable());
  }
  ~Placed() {
    if (const Ref<ITaviView> seen = as<ITaviView>()) seen->PrepareToRelease();
    view->Terminate();
  }

  template <class I>
  Ref<I> as() const {
    return query<I>(view.get());
  }
  // A walk that reports errors would be the wrong one to measure.
  void check() const {
    if (!host->error.empty()) throw std::runtime_error("the view has reported " + host->error);
  }

  VirtualDesktop desktop;
  Ref<IHostContainer> container{new QuietContainer};
  Ref<QuietMessenger> host;
  Ref<Component> view;
};

inline void offlineData(const Placed& placed, const Document& doc) {
  placed.as<ITaviDataUser>()->SetOfflineData(doc);
  placed.check();
}

inline void onlineData(const Placed& placed, const Document& doc) {
  placed.as<ITaviDataUser>()->SetOnlineData(doc);
  placed.check();
}

}  // namespace ostrand::bench
