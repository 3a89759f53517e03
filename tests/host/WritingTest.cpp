#include "host/Writing.h"

#include <gmock/gmock.h>

#include "host/ActingValues.h"
#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

class WritingTest : public HostTest {
 protected:
  const std::vector<Change> page = {{"v", "simulation", "Simulation", "0", "1", "noUnit", "integerVal", "simulation"},
                                    {"v", "simulationValue", "Value", "3.00", "4.50", "%Cs", "floatVal", "simulation"}};
  void SetUp() override {
    HostTest::SetUp();
    host.openDataSet(sourceData() / "devices" / "profibusBlade.xml");
  }
  static Lines said(const std::vector<LeftOut>& left) {
    static const char* const kWhy[] = {"no parameter", "by button", "by page", "declined"};
    Lines lines;
    for (const LeftOut& each : left) lines.push_back(each.name + " " + kWhy[static_cast<int>(each.why)]);
    return lines;
  }
  Lines onTheBus() {
    Lines lines;
    for (const auto& each : asked) lines.push_back(told(each.request));
    return lines;
  }
};

TEST_F(WritingTest, WhatActsStaysBehindWhenAllIsApplied) {
  std::vector<Change> changes = page;
  changes.push_back({"v", "tag", "Tag", "A", "B", "noUnit", "stringVal", "informationDevice"});
  changes.push_back({"v", "loopTestValue", "Test", "", "12", "%Cs", "floatVal", "loopTest"});
  EXPECT_THAT(said(host.exchange().applyChanges(changes)), ElementsAre("simulation by page", "simulationValue by page", "loopTestValue by button"));
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_THAT(told(asked[0].request), HasSubstr("tag=B"));
  EXPECT_THAT(prompt.lines, IsEmpty());
}

TEST_F(WritingTest, ItsOwnPageIsAskedForByNameAndUnit) {
  EXPECT_THAT(said(host.exchange().applyChanges(page, {}, "simulation")), IsEmpty());
  ASSERT_EQ(prompt.lines.size(), 1u);
  EXPECT_THAT(prompt.lines[0], testing::AllOf(HasSubstr("Simulation: On"), HasSubstr(": 4.50 %Cs")));
  EXPECT_EQ(prompt.answers.goOn, "Write these values");
  EXPECT_EQ(prompt.answers.stop, "Leave them out");
  EXPECT_EQ(onTheBus(), Lines{"write simulation: simulation=1 simulationValue=4.50"});
  EXPECT_TRUE(host.outputs().mayBeForced(OutputKind::Simulation));
}

TEST_F(WritingTest, WhoSaysNoLeavesThemOut) {
  prompt.answer = UserPrompt::kStop;
  std::vector<Change> changes = page;
  changes.push_back({"v", "tag", "Tag", "A", "B", "noUnit", "stringVal", "informationDevice"});
  EXPECT_THAT(said(host.exchange().applyChanges(changes, {}, "simulation")), ElementsAre("simulation declined", "simulationValue declined"));
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_THAT(told(asked[0].request), HasSubstr("tag=B"));
}

TEST_F(WritingTest, ValuesOfTheDataSetThatActAreNotWritten) {
  EXPECT_THAT(said(host.exchange().writeParameters({"simulation", "executeAction", "failSafeType", "nothing"})),
              testing::UnorderedElementsAre("executeAction by button", "failSafeType by page", "simulation by page", "nothing no parameter"));
  EXPECT_TRUE(asked.empty());
}

TEST_F(WritingTest, TheDataSetSaysWhatActsAndElseTheName) {
  const Document text = host.dataSet()->copy();
  text.select("//data:parameter[@name='damping']").setAttribute("acts", "page");
  text.select("//data:parameter[@name='simulation']").setAttribute("acts", "");
  const DataSet marked(text);
  EXPECT_EQ(actsOf(&marked, "damping"), Acts::ByPage);
  EXPECT_EQ(actsOf(&marked, "simulation"), Acts::ByPage) << "judged by its name";
  EXPECT_EQ(actsOf(nullptr, "channel3LoopTestValue"), Acts::ByButton);
  EXPECT_EQ(actsOf(nullptr, "statusSimulationActive"), Acts::No);
  EXPECT_EQ(actsOf(nullptr, "tag"), Acts::No);
}

}  // namespace

}  // namespace ostrand::test
