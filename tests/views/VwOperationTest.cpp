#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/RecordingProbe.h"
#include "views/VwOperation.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;

// A view whose release fails.
struct Stuck : VwOperation {
  bool fails = true;
  void clear() override {
    VwOperation::clear();
    if (std::exchange(fails, false)) throw RuntimeError(RuntimeError::PermissionDenied, "stuck");
  }
};

struct VwOperationTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  RecordingProbe probe;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};

  template <class V>
  Ref<V> placed() {
    const Ref<V> view(new V);
    view->Place(desktop, nullptr, "");
    view->SetMessenger(messenger);
    calls.take();
    return view;
  }
  void end(View& view) {
    view.Terminate();
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
  }
};

TEST_F(VwOperationTest, AReportOfItsReleaseBearsTwoBlanks) {
  const auto view = placed<Stuck>();
  messenger->announce("VwOperation  ITaviView_PrepareToRelease: ", 70);
  view->PrepareToRelease();
  EXPECT_FALSE(view->GetMessenger());
  end(*view);
}

TEST_F(VwOperationTest, TheReleaseIsNotPassedOn) {
  const auto view = placed<VwOperation>();
  desktop.setProbe(&probe);
  view->PrepareToRelease();
  desktop.setProbe(nullptr);
  EXPECT_THAT(probe.calls.take(), ElementsAre());
  view->SetSelectedView("simulation");
  EXPECT_EQ(view->GetSelectedView(), "") << "there is nothing left to select";
  end(*view);
}

TEST_F(VwOperationTest, ThePanelClaimsItsKeyOfEveryFrame) {
  const auto view = placed<VwOperation>();
  for (const char* key : {"moduleSelection", "simulation", "moduleSelection", "operation", "moduleSelection"}) {
    view->SetSelectedView(key);
    EXPECT_EQ(view->GetSelectedView(), key == std::string("operation") ? "simulation" : key);
  }
  view->RequestFocus();
  view->SetSelectedView("");
  EXPECT_EQ(view->GetSelectedView(), "");
  end(*view);
}

}  // namespace
}  // namespace ostrand
