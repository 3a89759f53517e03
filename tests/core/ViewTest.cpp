#include "core/View.h"

#include "ViewBench.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {
namespace {

using namespace test;
using modView::TabPosition;
using testing::ElementsAre;
using testing::IsEmpty;

struct ViewTest : ViewBench {
  static void twoFrames(TestView& at, Form& form) {
    CtrTextEdit& a = at.make<CtrTextEdit>("a");
    at.frame(form, "first", "date_first").row(a, "ctr_a");
    at.frame(form, "second", "date_second").row(at.make<CtrTextEdit>("b"), "ctr_b");
    Nested<FakeNestedView>& nested = at.make<Nested<FakeNestedView>>("nested");
    form.nested(nested, "live");
    at.mFocusOn = {{"first", &a}, {"live", &nested}};
  }
  static void reset(FakeNestedView& nested) {
    nested.calls.take();
    nested.selected.clear();
  }
};

// --- creation and size

TEST_F(ViewTest, BeginsWithWhiteFramesAndTheSelectableItemsInOrder) {
  place([](TestView& at, Form& form) {
    twoFrames(at, form);
    form.nested(at.make<Nested<FakeNestedUser>>("user"), "user");
  });
  EXPECT_EQ(view->frmViews(0).BackColor(), Color::window());
  EXPECT_EQ(view->frmViews(0).get("BackColor", {}), Value(0xFFFFFF));
  EXPECT_THAT(view->mViews, ElementsAre(&view->frmViews(0), &view->frmViews(1), &get<Control>("nested"))) << "what is no view is not selectable";
  EXPECT_FALSE(view->GetMessenger());
  EXPECT_EQ(view->GetSelectedView(), "");
  EXPECT_TRUE(view->LeaveSelectedView());
  EXPECT_EQ(&view->GetControls(), &view->controls());
  EXPECT_EQ(view->lblTitle(1).Tag(), "second");
  EXPECT_EQ(view->ctrDateLabels(1).Tag(), "date_second");
}

TEST_F(ViewTest, FillsItsItemsAndPutsTheStampsToTheRight) {
  place(twoFrames);
  view->Resize(12345, 6789);
  for (Control* item : view->mViews) {
    EXPECT_EQ(item->Left(), 0);
    EXPECT_EQ(item->Top(), 0);
    EXPECT_EQ(item->Width(), 12345);
    EXPECT_EQ(item->Height(), 6789);
  }
  for (int i : {0, 1}) {
    const CtrDateLabel& stamp = view->ctrDateLabels(i);
    EXPECT_GT(stamp.Width(), 0);
    EXPECT_EQ(stamp.Left(), 12345 - stamp.Width());
    EXPECT_EQ(stamp.Top(), 20);
  }
}

TEST_F(ViewTest, AFailureInResizingIsReportedOnceThereIsAMessenger) {
  place(twoFrames);
  const int before = view->frmViews(0).Width();
  probeOn();
  probe.calls.fail("frmViews(0).Move");
  view->Resize(1000, 1000);
  EXPECT_THAT(view->traces, ElementsAre("TestView UserControl_Resize - Error440: told to fail"));
  view->SetMessenger(messenger);
  probe.calls.fail("frmViews(0).Move", 1, 7);
  probe.calls.fail("ctrDateLabels(1).Move", 1, 8);
  messenger->announce("TestView UserControl_Resize: ", 7);
  messenger->announce("TestView UserControl_Resize: ", 8);
  view->Resize(2000, 2000);
  EXPECT_EQ(view->frmViews(1).Width(), 2000);
  EXPECT_EQ(view->frmViews(0).Width(), before);
}

TEST_F(ViewTest, AFailureInCreationIsDropped) {
  probeOn();
  probe.calls.fail("frmViews(0).BackColor =");
  place(twoFrames);
  EXPECT_EQ(view->mViews.size(), 3u);
  EXPECT_THAT(view->traces, ElementsAre("TestView UserControl_Initialize - Error440: told to fail"));
}

// --- selection

TEST_F(ViewTest, SelectsAFrameByItsKey) {
  placeWithHost(twoFrames);
  view->SetSelectedView("second");
  EXPECT_EQ(view->GetSelectedView(), "second");
  EXPECT_EQ(view->front(), &view->frmViews(1));
}

TEST_F(ViewTest, TheTreesNameSelectsTheFirstItem) {
  placeWithHost(twoFrames);
  view->SetSelectedView("second");
  view->SetSelectedView("testTree");
  EXPECT_EQ(view->GetSelectedView(), "first");
  EXPECT_EQ(view->front(), &view->frmViews(0));
}

TEST_F(ViewTest, TheHostMayGiveTheTreeAnotherName) {
  placeWithHost(twoFrames, "otherTree");
  view->SetSelectedView("testTree");
  EXPECT_EQ(view->GetSelectedView(), "");
  view->SetSelectedView("otherTree");
  EXPECT_EQ(view->GetSelectedView(), "first");
}

TEST_F(ViewTest, AnUnknownKeyLeavesTheFrontAndEmptiesTheSelection) {
  placeWithHost(twoFrames);
  view->SetSelectedView("second");
  reset(nested<FakeNestedView>("nested"));
  view->SetSelectedView("unknown");
  EXPECT_EQ(view->GetSelectedView(), "");
  EXPECT_EQ(view->front(), &view->frmViews(1));
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), ElementsAre("SetSelectedView unknown", "GetSelectedView"));
  view->RequestFocus();
  EXPECT_EQ(view->focused(), nullptr);
}

TEST_F(ViewTest, ANestedViewClaimsAKeyByItself) {
  placeWithHost(twoFrames);
  nested<FakeNestedView>("nested").takesEveryKey = true;
  view->SetSelectedView("inner");
  EXPECT_EQ(view->GetSelectedView(), "inner");
  EXPECT_EQ(view->front(), &get<Control>("nested"));
  nested<FakeNestedView>("nested").takesEveryKey = false;
  view->SetSelectedView("live");
  EXPECT_EQ(view->GetSelectedView(), "") << "its own tag is not asked";
}

TEST_F(ViewTest, AnEarlierItemClaimsTheKey) {
  placeWithHost([](TestView& at, Form& form) {
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "live");
    at.frame(form, "first", "date_first");
  });
  std::swap(view->mViews[0], view->mViews[1]);  // the nested one first
  nested<FakeNestedView>("nested").takesEveryKey = true;
  view->SetSelectedView("first");
  EXPECT_EQ(view->front(), &get<Control>("nested"));
  EXPECT_EQ(view->GetSelectedView(), "first");
}

TEST_F(ViewTest, AFailingNestedViewIsReportedAndPassedOver) {
  placeWithHost([](TestView& at, Form& form) {
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "live");
    at.frame(form, "first", "date_first");
  });
  std::swap(view->mViews[0], view->mViews[1]);
  nested<FakeNestedView>("nested").calls.fail("SetSelectedView", 1, 7);
  messenger->announce("TestView ITaviView_SetSelectedView: ", 7);
  reset(nested<FakeNestedView>("nested"));
  view->SetSelectedView("first");
  EXPECT_EQ(view->GetSelectedView(), "first");
  EXPECT_EQ(view->front(), &view->frmViews(0));
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), ElementsAre("SetSelectedView first", "GetSelectedView")) << "it is asked all the same";
}

TEST_F(ViewTest, ANestedViewThatFailsAndHasTheKeyIsSelected) {
  placeWithHost(twoFrames);
  nested<FakeNestedView>("nested").selected = "live";
  nested<FakeNestedView>("nested").calls.fail("SetSelectedView", 1, 7);
  messenger->announce("TestView ITaviView_SetSelectedView: ", 7);
  view->SetSelectedView("live");
  EXPECT_EQ(view->GetSelectedView(), "live");
  EXPECT_EQ(view->front(), &get<Control>("nested"));
}

TEST_F(ViewTest, AnItemThatCannotComeToFrontIsSelectedAllTheSame) {
  placeWithHost(twoFrames);
  probeOn();
  probe.calls.fail("frmViews(0).ZOrder", 1, 7);
  messenger->announce("TestView ITaviView_SetSelectedView: ", 7);
  view->SetSelectedView("testTree");
  EXPECT_EQ(view->GetSelectedView(), "first");
}

TEST_F(ViewTest, AViewWithoutItemsCannotSelect) {
  placeWithHost([](TestView&, Form&) {});
  messenger->announce("TestView ITaviView_SetSelectedView: ", 9);
  view->SetSelectedView("testTree");
  EXPECT_EQ(view->GetSelectedView(), "");
}

// --- focus

TEST_F(ViewTest, RequestFocusGoesToTheFramesFirstControl) {
  placeWithHost(twoFrames);
  view->RequestFocus();
  EXPECT_EQ(view->focused(), nullptr) << "nothing is selected";
  view->SetSelectedView("first");
  view->RequestFocus();
  EXPECT_EQ(view->focused(), &get<Control>("a"));
  view->SetSelectedView("second");
  view->RequestFocus();
  EXPECT_EQ(view->focused(), &get<Control>("a")) << "no target is told for this frame";
}

TEST_F(ViewTest, RequestFocusGoesToANestedView) {
  placeWithHost(twoFrames);
  nested<FakeNestedView>("nested").takesEveryKey = true;
  view->SetSelectedView("live");
  reset(nested<FakeNestedView>("nested"));
  view->RequestFocus();
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), ElementsAre("RequestFocus"));
}

TEST_F(ViewTest, AHiddenFirstControlIsReportedAndPassedOver) {
  placeWithHost(twoFrames);
  view->SetSelectedView("first");
  get<Control>("a").Visible(false);
  messenger->announce("TestView ITaviView_RequestFocus: ", 5);
  view->RequestFocus();
  EXPECT_EQ(view->focused(), nullptr);
}

// --- the tab step

struct TabStepTest : ViewTest {
  int focusOuts(TabPosition position, bool tab, bool shift) {
    desktop.tabDown = tab;
    desktop.shiftDown = shift;
    take();
    view->leaveByTab("x_LostFocus", position);
    return static_cast<int>(take().size());
  }
};

TEST_F(TabStepTest, LeavesTheViewForwardAtTheLastAndBackwardAtTheFirst) {
  placeWithHost(twoFrames);
  EXPECT_EQ(focusOuts(TabPosition::First, true, false), 0) << "tab out of the first stays inside";
  EXPECT_EQ(focusOuts(TabPosition::First, true, true), 1);
  EXPECT_EQ(focusOuts(TabPosition::Last, true, false), 1);
  EXPECT_EQ(focusOuts(TabPosition::Last, true, true), 0) << "shift and tab out of the last stays inside";
  EXPECT_EQ(focusOuts(TabPosition::Only, true, false), 1);
  EXPECT_EQ(focusOuts(TabPosition::Only, true, true), 1);
  for (TabPosition position : {TabPosition::First, TabPosition::Last, TabPosition::Only}) {
    EXPECT_EQ(focusOuts(position, false, false), 0);
    EXPECT_EQ(focusOuts(position, false, true), 0) << "without tab nothing leaves";
  }
}

TEST_F(TabStepTest, AFailingHostIsReportedUnderTheHandler) {
  placeWithHost(twoFrames);
  calls.fail("FocusOut");
  messenger->announce("TestView x_LostFocus: ", 440);
  EXPECT_EQ(focusOuts(TabPosition::Only, true, false), 2);
}

// --- write buttons

struct WriteButtonTest : ViewTest {
  WriteButtonTest() {
    placeWithHost([](TestView& at, Form& form) {
      at.followsMode = &at.make<CommandButton>("button");
      at.frame(form, "key", "date_key").button(*at.followsMode, "accept", "Accept");
    });
  }
  CommandButton& button() { return *view->followsMode; }
  void enable() {
    Procedure proc(*view, "p");
    view->enableByLevel(proc, button());
  }
};

TEST_F(WriteButtonTest, IsEnabledFromLevelThreeOn) {
  for (const auto& [level, enabled] : {std::pair{0, false}, {2, false}, {3, true}, {4, true}}) {
    messenger->userLevel = level;
    enable();
    EXPECT_EQ(button().Enabled(), enabled) << level;
  }
  calls.fail("GetUserLevel");
  messenger->announce("TestView p: ", 440);
  enable();
  EXPECT_FALSE(button().Enabled()) << "a level that cannot be asked is 0";
}

TEST_F(WriteButtonTest, FollowsTheCommunicationMode) {
  messenger->raiseMode(11);
  EXPECT_EQ(button().Tag(), "download");
  EXPECT_EQ(button().Caption(), "T:download");
  messenger->raiseMode(10);
  EXPECT_EQ(button().Tag(), "accept");
  EXPECT_EQ(button().Caption(), "T:accept");
  EXPECT_TRUE(button().Enabled());
  messenger->raiseMode(20);
  EXPECT_FALSE(button().Enabled());
  messenger->raiseMode(21);
  EXPECT_TRUE(button().Enabled());
}

TEST_F(WriteButtonTest, ModeFreeLeavesTheButtonAsItIsBelowLevelThree) {
  messenger->userLevel = 2;
  messenger->raiseMode(21);
  EXPECT_TRUE(button().Enabled());
  messenger->raiseMode(20);
  messenger->raiseMode(21);
  EXPECT_FALSE(button().Enabled());
}

TEST_F(WriteButtonTest, AnyModeSetsTheCaption) {
  for (int mode : {0, 12, 20, 21, -1}) {
    button().Caption("before");
    messenger->raiseMode(mode);
    EXPECT_EQ(button().Caption(), "T:accept") << mode;
  }
}

TEST_F(WriteButtonTest, EachFailingStatementOfAModeIsReported) {
  constexpr const char* kPrefix = "TestView mMessenger_ViewSetCommunicationMode: ";
  calls.fail("GetTextTable");
  messenger->announce(kPrefix, 440);
  button().Caption("before");
  messenger->raiseMode(20);
  EXPECT_FALSE(button().Enabled());
  EXPECT_EQ(button().Caption(), "before") << "nothing is assigned";
  calls.fail("GetText");
  messenger->announce(kPrefix, 440);
  messenger->raiseMode(20);
  EXPECT_EQ(button().Caption(), "before");
  calls.fail("GetUserLevel");
  messenger->announce(kPrefix, 440);
  messenger->raiseMode(21);
  EXPECT_FALSE(button().Enabled());
  EXPECT_EQ(button().Caption(), "T:accept");
}

// --- life

TEST_F(ViewTest, ListensToItsMessengerUntilItIsReleased) {
  placeWithHost(twoFrames);
  EXPECT_EQ(view->GetMessenger(), Ref<Messenger>(messenger));
  EXPECT_EQ(messenger->listeners(), 3u) << "the view and two edits";
  view->PrepareToRelease();
  EXPECT_FALSE(view->GetMessenger());
  EXPECT_EQ(messenger->listeners(), 0u);
  EXPECT_EQ(messenger->count(), 1u);
  EXPECT_THAT(view->mViews, IsEmpty());
}

TEST_F(ViewTest, TerminateDropsTheSameAsRelease) {
  const Ref<FakeContainer> container(new FakeContainer(calls));
  view = TestView::place(desktop, twoFrames, "", container);
  view->SetMessenger(messenger);
  EXPECT_GT(container->count(), 1u);
  view->Terminate();
  EXPECT_EQ(messenger->count(), 1u);
  EXPECT_EQ(messenger->listeners(), 0u);
  EXPECT_EQ(container->count(), 1u) << "the nested component's parent too";
  view->Terminate();
}

TEST_F(ViewTest, AReleasedViewTakesEveryCall) {
  placeWithHost(twoFrames);
  view->PrepareToRelease();
  view->PrepareToRelease();
  view->Localize(messenger->textTable);
  view->SetSelectedView("testTree");
  view->SetSelectedView("first");
  view->RequestFocus();
  view->SetImportData(dataSet(parameterXml("a", "1")));
  view->SetOfflineData(dataSet(parameterXml("a", "1")));
  view->SetOnlineData(answer("name=\"x\"", itemXml("a", "1")));
  view->SetErrorData(answer("name=\"x\" errorCode=\"missingItems\"", itemXml("a", "1")));
  view->Resize(1, 1);
  EXPECT_THAT(take(), IsEmpty()) << "without a messenger reports are dropped";
}

TEST_F(ViewTest, AHostThatFailsWhenLeftIsLeft) {
  placeWithHost(twoFrames);
  calls.failAlways("Unsubscribe");
  const Ref<FakeMessenger> other(new FakeMessenger(calls));
  view->SetMessenger(other);
  EXPECT_EQ(messenger->count(), 1u);
  view->PrepareToRelease();
  view->Terminate();
  EXPECT_EQ(other->count(), 1u);
}

TEST_F(ViewTest, AFailingNestedEndDoesNotLeaveTheView) {
  placeWithHost(twoFrames);
  nested<FakeNestedView>("nested").calls.failAlways("Terminate");
  view->PrepareToRelease();
  EXPECT_EQ(messenger->count(), 1u);
}

TEST_F(ViewTest, ReportsAFailingSubscription) {
  place(twoFrames);
  calls.fail("Subscribe");
  messenger->announce("TestView ITaviComponent_SetMessenger: ", 440);
  view->SetMessenger(messenger);
  EXPECT_EQ(messenger->listeners(), 2u) << "the edits";
}

TEST_F(ViewTest, MayBeReleasedInsideAnyCallOfItsHost) {
  for (const char* call : {"GetText", "ShowMessage"}) {
    placeWithHost(twoFrames);
    const int ended = TestView::ended;
    calls.during(call, [&] {
      view->PrepareToRelease();
      view->Terminate();
      view = nullptr;
    });
    TestView* const raw = view.get();
    raw->SetErrorData(answer("name=\"x\" errorCode=\"missingItems\"", itemXml("a", "1")));
    EXPECT_EQ(TestView::ended, ended + 1) << call;
    EXPECT_EQ(messenger->count(), 1u);
  }
}

TEST_F(ViewTest, TakesNoMessengerOverOnceItIsReleased) {
  for (const char* call : {"Unsubscribe", "Subscribe"}) {
    SCOPED_TRACE(call);
    placeWithHost(twoFrames);
    const Ref<FakeMessenger> other(new FakeMessenger(calls));
    calls.during(call, [&] { view->PrepareToRelease(); });
    view->SetMessenger(other);
    EXPECT_FALSE(view->GetMessenger());
    EXPECT_EQ(other->count(), 1u) << "no edit holds it";
    EXPECT_EQ(messenger->count(), 1u);
    view->Terminate();
  }
}

TEST_F(ViewTest, AHostThatFailsInEveryCallLosesNothing) {
  place(twoFrames);
  messenger->dropReports();
  calls.failAlways("*");
  view->SetMessenger(messenger);
  view->Localize(messenger->textTable);
  view->SetSelectedView("first");
  view->SetOfflineData(dataSet(parameterXml("a", "1")));
  view->RequestFocus();
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"ok\"", itemXml("a", "2")));
  view->SetErrorData(answer("name=\"x\" errorCode=\"missingItems\"", itemXml("a", "1")));
  EXPECT_EQ(get<CtrTextEdit>("a").Text(), "2");
  EXPECT_EQ(view->focused(), &get<Control>("a"));
  calls.failAlways("ReportError");
  view->SetErrorData(Document());
  view->PrepareToRelease();
}

}  // namespace
}  // namespace ostrand
