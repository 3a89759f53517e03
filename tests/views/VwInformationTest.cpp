#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "views/VwInformationGYREP.h"
#include "views/VwInformationH.h"
#include "views/VwInformationP.h"
#include "views/VwInformationP2.h"
#include "views/VwInformationQX5.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// What the reports of a view call it.
template <class V>
const char* reported() {
  if (std::is_same_v<V, VwInformationP>) return "VwInformationP ";
  if (std::is_same_v<V, VwInformationH>) return "VwInformationH ";
  if (std::is_same_v<V, VwInformationP2>) return "VwInformationP2 ";
  if (std::is_same_v<V, VwInformationQX5>) return "VwInformationHollinQX5 ";
  return "VwInformationGYREP ";
}

template <class V>
struct VwInformationTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<V> view{new V};

  VwInformationTest() {
    view->Place(desktop, nullptr, "");
    view->SetMessenger(messenger);
    calls.take();
  }
  ~VwInformationTest() override {
    view->Terminate();
    view = nullptr;
    EXPECT_EQ(messenger->count(), 1u);
    EXPECT_EQ(messenger->listeners(), 0u);
  }
  // The edits that are bound, in the order of the form.
  std::vector<EditControl*> edits() {
    std::vector<EditControl*> all;
    for (Control* control : view->GetControls())
      if (auto* const edit = dynamic_cast<EditControl*>(control)) all.push_back(edit);
    return all;
  }
  bool leaves(EditControl& edit, bool shift) {
    calls.take();
    desktop.tabDown = true;
    desktop.shiftDown = shift;
    edit.leave();
    desktop.tabDown = desktop.shiftDown = false;
    return calls.take() == std::vector<std::string>{"FocusOut"};
  }
};

using Views = testing::Types<VwInformationP, VwInformationH, VwInformationP2, VwInformationQX5, VwInformationGYREP>;
TYPED_TEST_SUITE(VwInformationTest, Views);

TYPED_TEST(VwInformationTest, EachEditTakesItsOwnItem) {
  const auto edits = this->edits();
  std::string items;
  for (const EditControl* edit : edits) {
    const bool isDate = edit->parameterName() == "deviceDate";
    items += itemXml(std::string(edit->parameterName()), isDate ? "05/01/2026" : "of " + std::string(edit->parameterName()));
  }
  this->view->SetOnlineData(answer("name=\"identification\" responseStatus=\"device\"", items));
  for (const EditControl* edit : edits)
    EXPECT_EQ(edit->Text(), edit->parameterName() == "deviceDate" ? "1/5/2026" : "of " + std::string(edit->parameterName()));
}

TYPED_TEST(VwInformationTest, HasNoLogicOfItsOwn) {
  this->view->SetOnlineData(answer("name=\"transmitter\" access=\"write\" isFinal=\"1\" responseStatus=\"device\""));
  EXPECT_THAT(this->calls.take(), IsEmpty());
  this->messenger->raiseMode(20);
  this->messenger->raiseReceiveValue("ctr_tag", "x");
  EXPECT_THAT(this->calls.take(), IsEmpty());
  EXPECT_TRUE(this->view->LeaveSelectedView());
}

TYPED_TEST(VwInformationTest, TheTabKeyLeavesAtTheEdgesOfBothFrames) {
  std::vector<std::string> forward, backward;
  for (EditControl* edit : this->edits()) {
    if (this->leaves(*edit, false)) forward.push_back(edit->name());
    if (this->leaves(*edit, true)) backward.push_back(edit->name());
  }
  EXPECT_THAT(backward, ElementsAre("cteIdentification(0)", "cteTransmitter(0)"));
  EXPECT_THAT(forward, ElementsAre(StartsWith("cteIdentification("), StartsWith("cteTransmitter(")));
}

TYPED_TEST(VwInformationTest, ReportsUnderItsName) {
  this->calls.fail("FocusOut");
  this->messenger->announce(std::string(reported<TypeParam>()) + "cteIdentification_LostFocus: ", 440);
  this->leaves(*this->edits().front(), true);
  this->view->SetSelectedView("identification");
  this->edits().front()->Visible(false);
  this->messenger->announce(std::string(reported<TypeParam>()) + "ITaviView_RequestFocus: ", 5);
  this->view->RequestFocus();
}

TYPED_TEST(VwInformationTest, IsQuietAfterItsRelease) {
  this->view->PrepareToRelease();
  this->view->SetSelectedView("identification");
  EXPECT_EQ(this->view->GetSelectedView(), "");
  this->view->SetOnlineData(answer("name=\"identification\""));
  this->view->RequestFocus();
  EXPECT_FALSE(this->view->GetMessenger());
  EXPECT_THAT(this->calls.take(), IsEmpty());
}

}  // namespace
}  // namespace ostrand
