#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "anyedit/CtrAnyEdit.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/TestView.h"

namespace ostrand::test {

// An editor with the tag "sample1" on a view with the tag "recipe1", and a host behind it. "a" is a float in Nm between 0 and 10
// with three decimals.
struct AnyEditBench : testing::Test {
  AnyEditBench() { place(); }
  ~AnyEditBench() override {
    if (view) view->Terminate();
    view = nullptr;
    EXPECT_EQ(messenger->count(), 1u) << "somebody still holds the messenger";
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
  }

  void place() {
    view = TestView::place(
        desktop, [](TestView& at, Form& form) { form.nested(at.make<Nested<CtrAnyEdit>>("cae"), "sample1"); }, "recipe1");
    any().SetMessenger(messenger);
    any().Change.connect([this](const std::string& name, const std::string& text) { calls.lines.push_back("Change " + name + " " + text); });
  }
  Nested<CtrAnyEdit>& control() { return view->get<Nested<CtrAnyEdit>>("cae"); }
  CtrAnyEdit& any() { return *control(); }
  std::vector<std::string> take() { return calls.take(); }

  static std::string torque(const std::string& name, const std::string& value, const std::string& rest = "synchronised=\"1\"") {
    return parameterXml(name, value, "type=\"floatVal\" unit=\"Nm\" decimals=\"3\" minVal=\"0\" maxVal=\"10\" access=\"readWrite\" " + rest);
  }
  static Document read(const std::string& name, const std::string& value, const std::string& unit = "Nm") {
    return answer("name=\"history\"",
                  "<comm:item name=\"" + name + "\" unit=\"" + unit + "\"><comm:floatVal>" + value + "</comm:floatVal></comm:item>");
  }
  void units(const std::string& name, const std::string& unit) {
    messenger->converter->userUnits[name] = unit;
    messenger->raiseUnits();
  }

  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view;
};

}  // namespace ostrand::test
