#include "host/StopReport.h"

#include "host/HostBench.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class StopReportTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    host.user().setLanguage("probe");
    host.openDataSet(sourceData() / "devices" / "hartBlade.xml");
  }
  std::string send(const std::string& value) {
    return host.exchange().submit("",
                                  "<communicationRequest name=\"loopTest\" access=\"write\"><item name=\"loopTestValue\" unit=\"mA\"><floatVal>" +
                                      value + "</floatVal></item></communicationRequest>",
                                  {}, {}, 0, 0);
  }
  Lines shown() {
    desktop.wait(0);
    return std::exchange(prompt.lines, {});
  }
  const Lines loopTest = {"! T:loopTest/QC-1201: T:loopTestStopRefused"};
};

TEST_F(StopReportTest, AStopThatTheDeviceRefusesIsTold) {
  send("12");
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  send("0");
  reply(answer("loopTest", "write", {{"loopTestValue", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrInvalidSelection\""));
  EXPECT_EQ(shown(), loopTest);
  EXPECT_TRUE(host.outputs().mayBeForced());
  send("0");
  reply(answer("loopTest", "write", {{"loopTestValue", "0"}}));
  EXPECT_TRUE(shown().empty()) << "this one has come through";
}

TEST_F(StopReportTest, AStopThatCameThroughIsNotDoubtedForTheNextStart) {
  send("12");
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  send("0");
  send("16");
  reply(answer("loopTest", "write", {{"loopTestValue", "0"}}));
  EXPECT_TRUE(host.outputs().mayBeForced()) << "the next start is under way";
  EXPECT_TRUE(shown().empty());
}

TEST_F(StopReportTest, DocumentsWaitForATestThatHasNotLeftYet) {
  host.exchange().readAll();
  send("12");
  EXPECT_EQ(refusalOf([&] { host.edits().discard(); }).number, RuntimeError::PermissionDenied);
  host.communication().cancelWaiting();
  host.edits().discard();
}

TEST_F(StopReportTest, SilenceAndAMissingDeviceAreToldToo) {
  send("0");
  desktop.wait(3);
  EXPECT_EQ(shown(), loopTest);
  host.connect(nullptr);
  EXPECT_EQ(send("0"), "no device is connected");
  EXPECT_EQ(shown(), loopTest);
}

TEST_F(StopReportTest, AnAcknowledgementThatConfirmsNothingIsNoStop) {
  send("12");
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  send("0");
  reply(answer("loopTest", "write", {}));
  EXPECT_EQ(shown(), loopTest);
}

TEST_F(StopReportTest, AValueThatIsNoNumberIsTold) {
  send("twelve");
  EXPECT_EQ(shown(), Lines{"! T:loopTest/QC-1201: T:loopTestValueIsNoNumber"});
}

TEST_F(StopReportTest, DocumentsWaitWhileALoopTestMayDrive) {
  PaperView& paper = view();
  send("12");
  EXPECT_EQ(refusalOf([&] { host.edits().discard(); }).number, RuntimeError::PermissionDenied);
  EXPECT_EQ(refusalOf([&] { host.setDataSet(smallDataSet()); }).number, RuntimeError::PermissionDenied);
  EXPECT_EQ(host.dataSet()->deviceType(), "hartBlade");
  EXPECT_TRUE(paper.take().empty());
  host.outputs().confirmedByUser();
  EXPECT_TRUE(host.outputs().mayBeForced()) << "the device has not said so";
  host.edits().discard();
  EXPECT_EQ(paper.take(), Lines{"SetOfflineData"});
  send("8");
  desktop.wait(3);
  EXPECT_EQ(refusalOf([&] { host.edits().discard(); }).number, RuntimeError::PermissionDenied) << "another value, another test";
}

TEST_F(StopReportTest, ASampleThatBeginsHasNoValuesYet) {
  host.exchange().submit("",
                         "<communicationRequest name=\"sampling\" access=\"write\"><item name=\"sampleStart\" "
                         "unit=\"noUnit\"><integerVal>0</integerVal></item></communicationRequest>",
                         {}, {}, 0, 0);
  EXPECT_NE(host.dataSet()->value("sample1ConsistencyAverage"), "");
  reply(answer("sampling", "write", {{"sampleStart", "0"}}));
  EXPECT_EQ(host.dataSet()->value("sample1ConsistencyAverage"), "");
  EXPECT_NE(host.dataSet()->value("sample2ConsistencyAverage"), "");
}

}  // namespace

}  // namespace ostrand::test
