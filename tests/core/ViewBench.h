#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/CtrTimeEdit.h"
#include "platform/types/Query.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/FakeNested.h"
#include "support/RecordingProbe.h"
#include "support/TestView.h"

namespace ostrand::test {

// A control whose class cannot be told.
struct Untellable : Label {
  using Label::Label;
  std::string_view className() const override { throw RuntimeError(RuntimeError::NoSuchMember, "no class name"); }
};

// A view that a test declares, on a virtual desktop, with a host and a probe that can be put in.
class ViewBench : public testing::Test {
 protected:
  ~ViewBench() override {
    desktop.setProbe(nullptr);
    if (view) view->Terminate();
    view = nullptr;
    EXPECT_EQ(messenger->count(), 1u) << "somebody still holds the messenger";
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
  }

  void place(TestView::Declare declare, const std::string& tag = {}) { view = TestView::place(desktop, std::move(declare), tag); }
  // With the messenger; what that records is forgotten.
  void placeWithHost(TestView::Declare declare, const std::string& tag = {}) {
    place(std::move(declare), tag);
    view->SetMessenger(messenger);
    calls.take();
  }
  // From here on the probe hears.
  void probeOn() { desktop.setProbe(&probe); }
  template <class T>
  T& get(std::string_view name) {
    return view->template get<T>(name);
  }
  template <class T>
  T& nested(std::string_view name) {
    return *view->template get<Nested<T>>(name);
  }
  std::vector<std::string> take() { return calls.take(); }

  FakeCalls calls;
  VirtualDesktop desktop;
  RecordingProbe probe;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view;
};

}  // namespace ostrand::test
