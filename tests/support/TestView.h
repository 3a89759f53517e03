#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/FakeCalls.h"
#include "core/View.h"
#include "platform/desktop/VirtualDesktop.h"

namespace ostrand::test {

// A view whose form a test declares with controls of its own; what a view keeps for itself is open.
class TestView : public View {
 public:
  using Declare = std::function<void(TestView&, Form&)>;

  // Made and placed; the desktop outlives it.
  static Ref<TestView> place(Desktop& desktop, Declare declare, const std::string& tag = {}, const Ref<IHostContainer>& parent = nullptr) {
    Ref<TestView> view(new TestView(std::move(declare)));
    view->Place(desktop, parent, tag);
    return view;
  }
  ~TestView() override { ++ended; }

  // A control of the test's form.
  template <class T>
  T& make(std::string name) {
    auto control = std::make_unique<T>(std::move(name));
    T& made = *control;
    mOwned.push_back(std::move(control));
    return made;
  }
  template <class T>
  T& at(int index) const {
    return dynamic_cast<T&>(*mOwned.at(static_cast<std::size_t>(index)));
  }

  using View::enableByLevel;
  using View::followMode;
  using View::frame;
  using View::frmViews;
  using View::ctrDateLabels;
  using View::leaveByTab;
  using View::lblTitle;
  using View::mFocusOn;
  using View::mMessenger;
  using View::mViews;

  static inline int ended = 0;
  CommandButton* followsMode = nullptr;

  void ViewSetCommunicationMode(int mode) override {
    if (!followsMode) return;
    Procedure proc(*this, "mMessenger_ViewSetCommunicationMode");
    followMode(proc, mode, *followsMode);
  }

 protected:
  void declare(Form& form) override { mDeclare(*this, form); }

 private:
  explicit TestView(Declare declare) : View("TestView", "testTree"), mDeclare(std::move(declare)) {}

  Declare mDeclare;
  std::vector<std::unique_ptr<Control>> mOwned;
};

// A container of the host: records what is downloaded.
class FakeContainer : public FakeObject<IHostContainer> {
 public:
  explicit FakeContainer(FakeCalls& calls) : mCalls(calls) {}
  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override {
    mCalls.arrive("DTMGUIDownload", "DTMGUIDownload \"" + name + "\" " + std::to_string(one) + " | " + xml);
  }
  std::string DTMGUIGetXmlPath() override { return mCalls.arrive("DTMGUIGetXmlPath"), "/xml/"; }

 private:
  FakeCalls& mCalls;
};

}  // namespace ostrand::test
