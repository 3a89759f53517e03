#include "host/Edits.h"
#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class EditsTest : public HostTest {};

TEST_F(EditsTest, ChangesGoOutByGroup) {
  PaperView& paper = view();
  const std::vector<Change> changes = {{"v", "speed", "", "1.25", "2", "N", "floatVal", "drive"},
                                       {"v", "name", "", "A", "B", "noUnit", "stringVal", "labels"},
                                       {"v", "mode", "", "1", "3", "noUnit", "integerVal", "drive"},
                                       {"v", "recipe1", "", "1 2", "1 3", "", "stringVal", "recipe1"}};
  bool finished = false;
  const auto left = host.exchange().applyChanges(changes, [&] { finished = true; });
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].name, "recipe1");
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write drive: speed=2 mode=3");
  reply(answer("drive", "write", {{"speed", "2"}, {"mode", "3"}}));
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write labels: name=B");
  EXPECT_FALSE(finished);
  reply(answer("labels", "write", {{"name", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrAccessRestricted\""));
  EXPECT_TRUE(finished);
  EXPECT_EQ(host.dataSet()->value("mode"), "3");
  ASSERT_EQ(host.exchange().transfer().failures().size(), 1u);
  EXPECT_EQ(host.exchange().transfer().failures()[0].item, "name");
  EXPECT_EQ(host.exchange().transfer().failures()[0].errorCode, "hartCmdErrAccessRestricted");
  EXPECT_EQ(paper.take(), (Lines{"SetOnlineData write drive: speed=2 mode=3", "SetErrorData write labels hartCmdErrAccessRestricted: name"}));
}

TEST_F(EditsTest, WithLocalAcceptanceChangesGoIntoTheDataSet) {
  view();
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  host.exchange().applyChanges({{"v", "speed", "", "1.25", "2", "N", "floatVal", "drive"}});
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(host.dataSet()->edited(), Lines{"speed"});
  host.edits().discard();
  EXPECT_TRUE(host.dataSet()->edited().empty());
  EXPECT_EQ(source.made.back()->take().back(), "SetOfflineData");
}

TEST_F(EditsTest, DiscardingBringsBackWhatTheDeviceHasSaid) {
  PaperView& paper = view();
  host.dataSet()->edit("speed", "3");
  host.edits().discard();
  EXPECT_EQ(paper.take(), Lines{"SetOfflineData"});
  const DataSet handed(paper.lastDocument);
  EXPECT_EQ(handed.value("speed"), "1.25");
  EXPECT_EQ(handed.offlineValue("speed"), "");
  EXPECT_EQ(handed.value("mode"), "") << "the device has never given it";
  EXPECT_TRUE(handed.synchronised("mode")) << "nor is it there to be written";
  EXPECT_EQ(host.dataSet()->value("mode"), "1") << "the data set keeps it";
}

TEST_F(EditsTest, TypedEditsAreKeptForTheFile) {
  PaperView& paper = view();
  paper.during = [&](const std::string& call) {
    if (!call.starts_with("changes")) return;
    paper.messenger->AddChange("speed", "Speed", "1.25", "2", "N", "floatVal", "drive");
    paper.messenger->AddChange("loopTestValue", "Test", "", "12", "mA", "floatVal", "loopTest");
  };
  const std::vector<LeftOut> left = host.edits().keepTyped();
  EXPECT_EQ(host.dataSet()->edited(), Lines{"speed"});
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].name, "loopTestValue");
  EXPECT_TRUE(asked.empty());
}

}  // namespace

}  // namespace ostrand::test
