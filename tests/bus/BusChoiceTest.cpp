#include "bus/BusChoice.h"
#include "bus/BusProcedure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/base/RuntimeError.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/TestView.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct BusChoiceTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view = TestView::place(desktop, [](TestView&, Form&) {});
  Ref<IBusDependent> bus;

  BusChoiceTest() { view->mMessenger = messenger; }
  std::string choose(const Document& doc) {
    Procedure proc(*view, "p");
    chooseBus(proc, *view, "VwAny", doc, bus);
    return bus ? bus->GetBusType() : "none";
  }
};

TEST_F(BusChoiceTest, TheCategoryChoosesTheStrategy) {
  EXPECT_EQ(choose(dataSet("", "", "", "HART")), "Hart");
  EXPECT_EQ(choose(dataSet("", "", "", "DPV1")), "Profibus");
  const Ref<IBusDependent> first = bus;
  EXPECT_EQ(choose(dataSet("", "", "", "DPV1")), "Profibus");
  EXPECT_FALSE(first == bus) << "a repeated choice replaces the strategy, and with it what it awaits";
  EXPECT_EQ(choose(dataSet("", "", "", "HART")), "Hart");
  EXPECT_THAT(calls.take(), IsEmpty());
}

TEST_F(BusChoiceTest, AnUnknownCategoryIsToldAndLeavesWhatWasThere) {
  EXPECT_EQ(choose(dataSet("", "", "", "hart")), "none");
  EXPECT_EQ(choose(dataSet("", "", "", "HART")), "Hart");
  const Ref<IBusDependent> first = bus;
  choose(dataSet("", "", "", "FF"));
  choose(dataSet("", "", "", ""));
  EXPECT_EQ(bus, first);
  EXPECT_THAT(calls.take(), ElementsAre(R"(ShowMessage "VwAny" "Not recognizing the bus category: hart")",
                                        R"(ShowMessage "VwAny" "Not recognizing the bus category: FF")",
                                        R"(ShowMessage "VwAny" "Not recognizing the bus category: ")"));
}

TEST_F(BusChoiceTest, AMissingCategoryIsReportedAndCountsAsAnEmptyOne) {
  messenger->announce("TestView p: ", 91);
  EXPECT_EQ(choose(Document::read("<data:dtm><typeInfo:internalInfo/></data:dtm>")), "none");
  EXPECT_THAT(calls.take(), ElementsAre(R"(ReportError "TestView p: " 91)", R"(ShowMessage "VwAny" "Not recognizing the bus category: ")"));
}

TEST_F(BusChoiceTest, TheFirstElementThatBearsACategoryCounts) {
  EXPECT_EQ(
      choose(Document::read(
          "<data:dtm><a><typeInfo:internalInfo/></a><b><typeInfo:internalInfo busCategory='DPV1'/></b><typeInfo:internalInfo busCategory='HART'/></data:dtm>")),
      "Profibus");
}

TEST_F(BusChoiceTest, AnAbsentStrategyIsError91) {
  BusProcedure proc(*view, "p", bus);
  messenger->announce("TestView p: ", 91);
  EXPECT_FALSE(proc.step([&] { proc.bus(); }));
}

TEST_F(BusChoiceTest, AnEntryUsesTheStrategyOfTheMomentAndAfterAReleaseAnInnerOneThatOfTheEntry) {
  choose(dataSet("", "", "", "DPV1"));
  BusProcedure proc(*view, "p", bus);
  BusProcedure inner(*view, "q", proc);
  choose(dataSet("", "", "", "HART"));
  EXPECT_EQ(proc.bus()->GetBusType(), "Hart");
  EXPECT_EQ(inner.bus()->GetBusType(), "Hart");
  view->PrepareToRelease();
  bus = nullptr;
  EXPECT_THROW(proc.bus(), RuntimeError);
  EXPECT_EQ(inner.bus()->GetBusType(), "Profibus");
  EXPECT_EQ(inner.pinnedMessenger(), Ref<Messenger>(messenger)) << "that of the outer entry";
}

}  // namespace
}  // namespace ostrand
