#pragma once

#include <string>
#include <string_view>

#include "platform/controls/Component.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/ITaviView.h"
#include "platform/types/Query.h"
#include "support/FakeCalls.h"

namespace ostrand::test {

enum Offers : unsigned { kView = 1, kDataUser = 2, kComponent = 4, kLocalizable = 8 };

// A nested component with these interfaces of the four, which records what it is called and fails when told.
// It is made by a form, so that its calls are found in it.
template <unsigned offers>
class FakeNested : public Component, public ITaviView, public ITaviDataUser, public ITaviComponent, public ILocalizable {
 public:
  static constexpr std::string_view kClassName = "FakeNested";
  FakeCalls calls;
  ControlCollection none;
  std::string selected;  // what GetSelectedView answers, unless it takes the key
  bool takesEveryKey = false;

  const ControlCollection& GetControls() override { return none; }
  Ref<Messenger> GetMessenger() override { return mMessenger; }
  std::string GetSelectedView() override { return calls.arrive("GetSelectedView", "GetSelectedView"), selected; }
  void SetSelectedView(const std::string& key) override {
    calls.arrive("SetSelectedView", "SetSelectedView " + key);
    if (takesEveryKey) selected = key;
  }
  bool LeaveSelectedView() override { return true; }
  void RequestFocus() override { calls.arrive("RequestFocus", "RequestFocus"); }
  void PrepareToRelease() override { calls.arrive("PrepareToRelease", "PrepareToRelease"); }
  void SetErrorData(const Document&) override { calls.arrive("SetErrorData", "SetErrorData"); }
  void SetImportData(const Document&) override { calls.arrive("SetImportData", "SetImportData"); }
  void SetOfflineData(const Document&) override { calls.arrive("SetOfflineData", "SetOfflineData"); }
  void SetOnlineData(const Document&) override { calls.arrive("SetOnlineData", "SetOnlineData"); }
  void SetMessenger(const Ref<Messenger>&) override { calls.arrive("SetMessenger", "SetMessenger"); }
  void Localize(const Ref<ITextTable>&) override { calls.arrive("Localize", "Localize"); }
  std::string_view objectName() const override { return kClassName; }

 protected:
  void terminate() override { calls.arrive("Terminate", "Terminate"); }
  bool offerInterface(const Guid& id, void** out) noexcept override {
    return ((offers & kView) && offer<ITaviView>(id, this, out)) || ((offers & kDataUser) && offer<ITaviDataUser>(id, this, out)) ||
           ((offers & kComponent) && offer<ITaviComponent>(id, this, out)) || ((offers & kLocalizable) && offer<ILocalizable>(id, this, out));
  }
};

using FakeNestedView = FakeNested<kView | kDataUser | kComponent | kLocalizable>;
using FakeNestedUser = FakeNested<kDataUser>;
using FakeNestedBare = FakeNested<0>;

}  // namespace ostrand::test
