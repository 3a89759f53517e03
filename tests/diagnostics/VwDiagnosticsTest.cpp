#include "diagnostics/DiagnosticsBench.h"

namespace ostrand::test {
namespace {

using testing::IsEmpty;

TEST(VwDiagnosticsTest, BeforeThereIsAHostNothingIsTold) {
  BladeDiagnostics bench;
  bench.view->SetOfflineData(bladeData());
  bench.value().type("5");
  bench.start().click();
  bench.answers("0");
  bench.box(0).click();
  bench.reset().click();
  EXPECT_TRUE(bench.view->LeaveSelectedView());
  EXPECT_THAT(bench.calls.take(), IsEmpty());
}

TEST(VwDiagnosticsTest, TheStatusTreeAloneGetsItsErrors) {
  BladeDiagnostics bench;
  bench.begin(bladeData());
  bench.calls.take();
  bench.view->SetErrorData(answer("name=\"deviceStatus\" errorCode=\"communicationError\"", itemXml("loopTestValue", "1")));
  EXPECT_THAT(bench.calls.take(), IsEmpty()) << "no message";
  EXPECT_EQ(bench.value().Error(), "");
}

TEST(VwDiagnosticsTest, TheRenamedBitStandsBeforeItsOriginalUnderTheSameParent) {
  BladeDiagnostics bench;
  bench.begin(bladeData());
  const Document doc = answer("name=\"deviceStatus\"", "<comm:item name=\"a\"/><comm:group>" + itemXml("statusHARTPVOutOfLimits", "1", "integerVal") +
                                                           "</comm:group>" + itemXml("statusHARTPVOutOfLimits", "0", "integerVal"));
  bench.view->SetOnlineData(doc);
  const std::vector<Node> all = doc.selectAll("//comm:item");
  ASSERT_EQ(all.size(), 4u) << "the first one only";
  EXPECT_EQ(all[1].attribute("name"), "statusConsistencyOutOfLimits");
  EXPECT_EQ(all[1].text(), "1");
  EXPECT_EQ(all[1].parent().name(), "comm:group");
  EXPECT_EQ(all[2].attribute("name"), "statusHARTPVOutOfLimits");
}

TEST(VwDiagnosticsTest, AnAnswerInTheMiddleOfTheReleaseChangesNoDocument) {
  BladeDiagnostics bench;
  const Document data = bladeData();
  bench.begin(data);
  const std::string before = data.xml();
  bench.probe.calls.during("CtrStatus1.PrepareToRelease", [&] { bench.online("eventLog", itemXml("eventLogErrorCount01", "7", "integerVal")); });
  bench.view->PrepareToRelease();
  EXPECT_EQ(data.xml(), before);
  EXPECT_THAT(bench.messenger->reports, testing::ElementsAre("VwDiagnostics updateEventLog91"));
}

TEST(VwDiagnosticsTest, EightRowsOfThreeListsAreFilledFromItemsInAnyOrder) {
  std::string parameters;
  std::vector<std::string> items;
  const char* const categories[] = {"Error", "Warning", "Info"};
  for (const char* category : categories)
    for (int row = 1; row <= 9; ++row)
      for (const char* kind : {"Event", "Count"}) {
        const std::string name = std::string("eventLog") + category + kind + "0" + std::to_string(row);
        if (row < 9) parameters += parameterXml(name, "");
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(items.size() * 7 / 13),
                     itemXml(name, category + std::string(kind) + std::to_string(row)));
      }
  BladeDiagnostics bench;
  const Document data = dataSet(parameters);
  bench.begin(data);
  std::string all;
  for (const std::string& item : items) all += item;
  bench.online("eventLog", all);
  EXPECT_THAT(bench.messenger->reports, IsEmpty());
  for (int category = 0; category < 3; ++category) {
    ASSERT_EQ(bench.log(category).Count(), 8);
    for (int row = 1; row <= 8; ++row) {
      const std::string number = std::to_string(row), word = categories[category];
      EXPECT_EQ(bench.log(category).Cell(row, 1), "T:" + word + "Event" + number);
      EXPECT_EQ(bench.log(category).Cell(row, 2), word + "Count" + number);
      EXPECT_EQ(data.select("//data:parameter[@name='eventLog" + word + "Event0" + number + "']").attribute("value"), word + "Event" + number);
    }
  }
}

}  // namespace
}  // namespace ostrand::test
