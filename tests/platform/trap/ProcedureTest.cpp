#include "platform/trap/Procedure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "support/TestView.h"
#include "support/FakeMessenger.h"

namespace ostrand::test {
namespace {

using Host = const Ref<Messenger>&;
using Last = const Ref<LastError>&;

// Prefixes are borrowed.
static_assert(std::is_constructible_v<Procedure, Host, Last, const char*>);
static_assert(std::is_constructible_v<Procedure, Host, Last, const std::string&>);
static_assert(!std::is_constructible_v<Procedure, Host, Last, std::string>);
static_assert(std::is_constructible_v<Procedure, Reporter&, const std::string&>);
static_assert(!std::is_constructible_v<Procedure, Reporter&, std::string>);
static_assert(!std::is_constructible_v<Procedure, Reporter&, std::string, Host>);

struct ProcedureTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> host{new FakeMessenger(calls)};
  Ref<TestView> view = TestView::place(desktop, [](TestView&, Form&) {});

  static void fails() { throw RuntimeError(RuntimeError::Overflow, "too much"); }
};

TEST_F(ProcedureTest, ReportsToTheMessengerThatItIsGiven) {
  Procedure proc(*view, "enters", host);
  host->announce("TestView enters: ", 6);
  EXPECT_FALSE(proc.step(fails));
  EXPECT_THAT(view->traces, testing::IsEmpty());
}

TEST_F(ProcedureTest, WithoutAMessengerTheFailureIsDropped) {
  Procedure proc(*view, "enters");
  EXPECT_FALSE(proc.step(fails));
  EXPECT_THAT(view->traces, testing::ElementsAre("TestView enters - Error6: too much"));
}

TEST_F(ProcedureTest, HoldsWhatItHasPinned) {
  view->SetMessenger(host);
  const int ended = TestView::ended;
  {
    Procedure proc(*view, "enters");
    view->Terminate();
    view = nullptr;
    EXPECT_EQ(TestView::ended, ended);
    host->announce("TestView enters: ", 6);
    proc.step(fails);
  }
  EXPECT_EQ(TestView::ended, ended + 1);
}

}  // namespace
}  // namespace ostrand::test
