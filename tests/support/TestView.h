#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/View.h"
#include "platform/base/RuntimeError.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/FakeCalls.h"

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
  // Made only, as a component server makes it.
  static Ref<TestView> unplaced(Declare declare) { return Ref<TestView>(new TestView(std::move(declare))); }
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
  T& get(std::string_view name) const {
    for (Control* control : controls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + std::string(name));
  }

  using View::ctrDateLabels;
  using View::enableByLevel;
  using View::followMode;
  using View::frame;
  using View::frmViews;
  using View::lblTitle;
  using View::leaveByTab;
  using View::mFocusOn;
  using View::mMessenger;
  using View::mViews;

  static inline int ended = 0;
  CommandButton* followsMode = nullptr;
  std::function<void(const std::string& tag, const std::string& value)> received;
  std::vector<std::string> traces;  // what was dropped for want of a messenger

  void dropped(const std::string& text) override {
    traces.push_back(text);
    View::dropped(text);
  }

  void ViewReceiveValue(const std::string& tag, const std::string& value) override {
    if (received) received(tag, value);
  }
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
