#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/TestView.h"
#include "platform/controls/Form.h"

namespace ostrand::test {

// Control `T` on a view, with tag "ctr_x" and a host behind it.
template <class T>
class ControlBench : public testing::Test {
 protected:
  ControlBench() {
    view = TestView::place(
        desktop, [](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<Label>("lblX"), "x", at.make<T>("ctlX"), "ctr_x"); });
    edit().changed.connect([this] { ++signals; });
  }
  ~ControlBench() override {
    if (view) view->Terminate();
    view = nullptr;
    EXPECT_TRUE(!messenger || messenger->count() == 1) << "somebody still holds the messenger";
    EXPECT_TRUE(!messenger || messenger->listeners() == 0) << "somebody still listens";
  }

  T& edit() { return view->template get<T>("ctlX"); }
  // The host enters, with a converter and a text table.
  void connect() {
    messenger = Ref<FakeMessenger>(new FakeMessenger(calls));
    edit().SetMessenger(messenger);
  }
  std::vector<std::string> take() { return calls.take(); }

  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger;
  Ref<TestView> view;
  int signals = 0;
};

}  // namespace ostrand::test
