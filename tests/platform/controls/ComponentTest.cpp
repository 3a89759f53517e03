#include "platform/controls/Component.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/base/RuntimeError.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/Form.h"
#include "platform/types/IClassFactory.h"
#include "platform/types/Query.h"
#include "support/ErrorOf.h"
#include "support/FakeMessenger.h"
#include "support/RecordingProbe.h"
#include "support/TestView.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;

struct ComponentTest : testing::Test {
  VirtualDesktop desktop;
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    at.frame(form, "first", "date_first").row(at.make<CtrTextEdit>("a"), "ctr_a").row(at.make<CtrTextEdit>("b"), "ctr_b");
    at.frame(form, "second", "date_second");
    form.nested(at.make<Nested<CtrMonitoring>>("CtrMonitoring1"), "live");
  });
  CtrTextEdit& a = view->get<CtrTextEdit>("a");
  CtrTextEdit& b = view->get<CtrTextEdit>("b");
  Nested<CtrMonitoring>& live = view->get<Nested<CtrMonitoring>>("CtrMonitoring1");
  std::vector<std::string> heard;

  ComponentTest() {
    a.LostFocus.connect([this] { heard.push_back("a lost"); });
    b.LostFocus.connect([this] { heard.push_back("b lost"); });
  }
};

TEST_F(ComponentTest, TheOneBeforeHearsThatItLostTheFocus) {
  EXPECT_EQ(view->focused(), nullptr);
  a.SetFocus();
  EXPECT_EQ(view->focused(), &a);
  EXPECT_THAT(heard, ElementsAre());
  a.SetFocus();
  EXPECT_THAT(heard, ElementsAre());
  b.SetFocus();
  EXPECT_EQ(view->focused(), &b);
  EXPECT_THAT(heard, ElementsAre("a lost"));
  view->moveFocus(nullptr);
  EXPECT_EQ(view->focused(), nullptr);
  EXPECT_THAT(heard, ElementsAre("a lost", "b lost"));
}

TEST_F(ComponentTest, AHiddenOrDisabledControlCannotTakeTheFocus) {
  b.SetFocus();
  a.Visible(false);
  EXPECT_EQ(errorOf([&] { a.SetFocus(); }), 5);
  a.Visible(true);
  a.Enabled(false);
  EXPECT_EQ(errorOf([&] { a.SetFocus(); }), 5);
  EXPECT_EQ(view->focused(), &b);
  EXPECT_THAT(heard, ElementsAre());
}

TEST_F(ComponentTest, TheFocusMovesAcrossNestedComponents) {
  a.SetFocus();
  live->RequestFocus();
  EXPECT_THAT(heard, ElementsAre("a lost"));
  ASSERT_TRUE(view->focused());
  EXPECT_EQ(view->focused()->name(), "lsvMonitoring");
  EXPECT_EQ(live->focused(), view->focused()) << "there is one focus";
  b.SetFocus();
  EXPECT_EQ(live->focused(), &b);
}

TEST_F(ComponentTest, LosingTheFocusMayEndTheView) {
  const int ended = TestView::ended;
  a.SetFocus();
  a.LostFocus.connect([this] { view = nullptr; });
  b.SetFocus();
  EXPECT_EQ(TestView::ended, ended + 1);
}

TEST_F(ComponentTest, ANestedComponentMayBeHeldLongerThanItsView) {
  const Ref<ITaviView> held = query<ITaviView>(live.Object());
  view = nullptr;
  held->RequestFocus();
  EXPECT_EQ(held->GetControls().front()->owner()->focused()->name(), "lsvMonitoring");
}

TEST_F(ComponentTest, BringsAnItemToFrontAndTellsIt) {
  EXPECT_EQ(view->front(), &view->frmViews(0));
  int changes = 0;
  view->changed.connect([&] { ++changes; });
  view->frmViews(1).ZOrder(0);
  EXPECT_EQ(view->front(), &view->frmViews(1));
  view->frmViews(1).ZOrder(0);
  view->frmViews(0).ZOrder(1);
  EXPECT_EQ(view->front(), &view->frmViews(1));
  EXPECT_EQ(changes, 1);
}

TEST_F(ComponentTest, IsPlacedOnce) {
  VirtualDesktop other;
  const std::size_t controls = view->controls().size();
  view->Place(other, nullptr, "again");
  EXPECT_EQ(&view->desktop(), &desktop);
  EXPECT_EQ(view->controls().size(), controls);
  EXPECT_EQ(view->tag(), "");
}

TEST_F(ComponentTest, OffersItsInterfacesAndCounts) {
  void* out = this;
  EXPECT_EQ(view->queryInterface(ITaviView::kId, nullptr), Result::BadPointer);
  EXPECT_EQ(view->queryInterface(IClassFactory::kId, &out), Result::NoInterface);
  EXPECT_EQ(out, nullptr);
  EXPECT_TRUE(query<IObject>(view.get()));
  EXPECT_TRUE(query<IPlaceable>(view.get()));
  EXPECT_TRUE(query<ITaviView>(view.get()));
  EXPECT_TRUE(query<ITaviDataUser>(view.get()));
  EXPECT_TRUE(query<ITaviComponent>(view.get()));
  EXPECT_TRUE(query<ILocalizable>(view.get()));
  const int ended = TestView::ended;
  Ref<ITaviView> last = query<ITaviView>(view.get());
  view = nullptr;
  EXPECT_EQ(TestView::ended, ended);
  last = nullptr;
  EXPECT_EQ(TestView::ended, ended + 1);
}

TEST(LooseComponentTest, HasNoDesktopBeforeItIsPlaced) {
  const Ref<CtrMonitoring> loose(new CtrMonitoring);
  EXPECT_THROW(loose->desktop(), RuntimeError);
  loose->Terminate();
}

// --- the last error

struct ProcedureOfComponentTest : ComponentTest {
  FakeCalls calls;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  static void fails() { throw RuntimeError(7, "no memory"); }
};

TEST_F(ProcedureOfComponentTest, AnOutermostProcedureBeginsWithoutAnError) {
  view->mMessenger = messenger;
  messenger->announce("TestView one: ", 7);
  Procedure(*view, "one").step(fails);
  EXPECT_EQ(view->lastError()->error.number, 7);
  messenger->announce("TestView two: ", 0);
  Procedure two(*view, "two");
  two.reportLastError();
  EXPECT_EQ(messenger->lastDescription(), "");
}

TEST_F(ProcedureOfComponentTest, AReenteredProcedurePutsTheErrorBack) {
  view->mMessenger = messenger;
  messenger->announce("TestView outer: ", 7);
  messenger->announce("TestView inner: ", 11);
  messenger->announce("TestView outer: ", 7);
  Procedure outer(*view, "outer");
  outer.step(fails);
  {
    Procedure inner(*view, "inner");
    EXPECT_EQ(view->lastError()->error.number, 0);
    inner.step([] { throw RuntimeError(11, "inside"); });
  }
  outer.reportLastError();
  EXPECT_EQ(messenger->lastDescription(), "no memory");
}

TEST_F(ProcedureOfComponentTest, AModulesProcedureSharesTheErrorOfItsComponent) {
  view->mMessenger = messenger;
  messenger->announce("module: ", 7);
  messenger->announce("TestView outer: ", 7);
  Procedure outer(*view, "outer");
  EXPECT_FALSE(Procedure(messenger, view->lastError(), "module: ").all(fails));
  outer.reportLastError();
}

TEST_F(ProcedureOfComponentTest, AFailingErrorChannelIsPassedOver) {
  view->mMessenger = messenger;
  messenger->announce("TestView p: ", 7);
  calls.fail("ReportError");
  Procedure proc(*view, "p");
  int after = 0;
  EXPECT_FALSE(proc.step(fails));
  EXPECT_TRUE(proc.step([&] { ++after; }));
  EXPECT_EQ(after, 1);
}

TEST_F(ProcedureOfComponentTest, PinsTheObjectAndTheMessenger) {
  view->mMessenger = messenger;
  const int ended = TestView::ended;
  messenger->announce("TestView p: ", 7);
  {
    Procedure proc(*view, "p");
    view->mMessenger = nullptr;
    view = nullptr;
    EXPECT_EQ(TestView::ended, ended);
    proc.step(fails);
    EXPECT_EQ(&proc.messenger(), messenger.get());
  }
  EXPECT_EQ(TestView::ended, ended + 1);
}

TEST_F(ProcedureOfComponentTest, AnyExceptionIsReported) {
  view->mMessenger = messenger;
  messenger->announce("TestView p: ", 440);
  messenger->announce("TestView p: ", 440);
  messenger->announce("TestView p: ", 91);
  Procedure proc(*view, "p");
  proc.step([] { throw std::out_of_range("too far"); });
  EXPECT_EQ(messenger->lastDescription(), "too far");
  proc.step([] { throw 5; });
  EXPECT_EQ(proc.value(std::string("fallback"), []() -> std::string { throwNothingThere("it"); }), "fallback");
}

}  // namespace
}  // namespace ostrand
